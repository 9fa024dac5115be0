/// {fmt}: numbers with groups by a locale, without any settings.
#include "bench/Inputs.h"
#include "bench/Row.h"

#if UNITLIB_BENCH_FMT
#include <fmt/format.h>
#include <fmt/xchar.h>

#include <cmath>
#include <locale>
#endif

namespace unitlib::bench {

#if UNITLIB_BENCH_FMT
namespace {

struct TGroups final : std::numpunct<char> {
  char do_thousands_sep() const override { return ','; }
  std::string do_grouping() const override { return "\3"; }
};

} // namespace

void AddFmtRows() {
  static const std::locale Locale(std::locale::classic(), new TGroups);
  AddRow("StoreToDisplay, metres, 3 decimals, symbol, groups of three", "{fmt}", Inputs().Lengths, {},
         [](double Value) { return fmt::format(Locale, "{:.3Lf} m", Value / 1000); });
  AddRow("StoreToDisplay, feet and fractional inches, 1/16", "{fmt}", Inputs().ShortLengths, {},
         [](double Value) {
           const auto Sixteenths = static_cast<long>(std::lround(Value * (16 / 25.4)));
           return fmt::format("{}' {} {}/16\"", Sixteenths / 192, Sixteenths / 16 % 12, Sixteenths % 16);
         });
}
#else
void AddFmtRows() {}
#endif

} // namespace unitlib::bench
