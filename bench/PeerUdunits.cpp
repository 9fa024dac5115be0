/// UDUNITS-2: converting and writing, reading and converting.
#include "bench/Inputs.h"
#include "bench/Row.h"

#if UNITLIB_BENCH_UDUNITS
#include <udunits2.h>

#include <cstdio>
#endif

namespace unitlib::bench {

#if UNITLIB_BENCH_UDUNITS
namespace {

ut_system* System() {
  static ut_system* const Read = [] {
    ut_set_error_message_handler(ut_ignore);
    return ut_read_xml(nullptr);
  }();
  return Read;
}

ut_unit* Millimetre() {
  static ut_unit* const Unit = ut_parse(System(), "mm", UT_ASCII);
  return Unit;
}

/// Millimetres of a quantity as UDUNITS writes one: "1234.568 m", "5.5 ft".
double ReadQuantity(const std::string& Text) {
  ut_unit* const Unit = ut_parse(System(), Text.c_str(), UT_ASCII);
  if (!Unit) return 0;
  cv_converter* const Converter = ut_get_converter(Unit, Millimetre());
  const double Value = cv_convert_double(Converter, 1);
  cv_free(Converter);
  ut_free(Unit);
  return Value;
}

} // namespace

void AddUdunitsRows() {
  static const std::vector<std::string> Metres = [] {
    std::vector<std::string> Result = Narrow(Inputs().MetreTexts);
    for (std::string& Text : Result) std::erase(Text, ',');
    return Result;
  }();
  static const std::vector<std::string> Feet = [] {
    std::vector<std::string> Result;
    for (const double Value : Inputs().ShortLengths) Result.push_back(std::to_string(Value / 304.8) + " ft");
    return Result;
  }();
  const auto Prepare = [] { System(); };
  AddRow("StoreToDisplay, metres, 3 decimals, symbol, groups of three", "UDUNITS-2", Inputs().Lengths,
         Prepare, [](double Value) {
           static ut_unit* const Metre = ut_parse(System(), "m", UT_ASCII);
           cv_converter* const Converter = ut_get_converter(Millimetre(), Metre);
           char Text[64];
           const int Size = std::snprintf(Text, sizeof Text, "%.3f m", cv_convert_double(Converter, Value));
           cv_free(Converter);
           return std::string(Text, static_cast<std::size_t>(Size));
         });
  AddRow("DisplayToStore, \"1,234.568 m\"", "UDUNITS-2", Metres, Prepare, ReadQuantity);
  AddRow("DisplayToStore, \"5'6 1/2\"\"", "UDUNITS-2", Feet, Prepare, ReadQuantity);
}
#else
void AddUdunitsRows() {}
#endif

} // namespace unitlib::bench
