/// libqalculate: arithmetic and units. The first 10,000 inputs: it takes tens of microseconds for each.
#include "bench/Inputs.h"
#include "bench/Row.h"

#if UNITLIB_BENCH_QALCULATE
#include <libqalculate/qalculate.h>
#endif

namespace unitlib::bench {

#if UNITLIB_BENCH_QALCULATE
namespace {

constexpr std::size_t Inputs10000 = 10'000;

Calculator& Engine() {
  static Calculator Instance;
  static const bool Loaded = Instance.loadGlobalDefinitions();
  static_cast<void>(Loaded);
  return Instance;
}

std::string Calculate(const std::string& Text) {
  return Engine().calculateAndPrint(Text, 1000);
}

} // namespace

void AddQalculateRows() {
  static const std::vector<std::string> Plain = Narrow(Inputs().PlainExpressions);
  static const std::vector<std::string> Metres = [] {
    std::vector<std::string> Result = Narrow(Inputs().MetreTexts);
    for (std::string& Text : Result) {
      std::erase(Text, ',');
      Text += " to mm";
    }
    return Result;
  }();
  const auto Prepare = [] { Engine(); };
  AddRow("DisplayToStore, \"1,234.568 m\"", "libqalculate", Metres, Prepare, Calculate, Inputs10000);
  AddRow("Parse, merge, value, \"(1+2)*3-4/5*(6-7)\"", "libqalculate", Plain, Prepare, Calculate,
         Inputs10000);
}
#else
void AddQalculateRows() {}
#endif

} // namespace unitlib::bench
