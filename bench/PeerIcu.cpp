/// ICU: number formatting and parsing of a locale, with a unit.
#include "bench/Inputs.h"
#include "bench/Row.h"

#if UNITLIB_BENCH_ICU
#include <unicode/numberformatter.h>
#include <unicode/numfmt.h>
#endif

namespace unitlib::bench {

#if UNITLIB_BENCH_ICU
void AddIcuRows() {
  using namespace icu;
  static const number::LocalizedNumberFormatter Format = number::NumberFormatter::withLocale(Locale::getUS())
                                                             .precision(number::Precision::fixedFraction(3))
                                                             .unit(MeasureUnit::getMeter())
                                                             .unitWidth(UNUM_UNIT_WIDTH_SHORT);
  static UErrorCode Status = U_ZERO_ERROR;
  static const std::unique_ptr<NumberFormat> Reader(NumberFormat::createInstance(Locale::getUS(), Status));
  AddRow("StoreToDisplay, metres, 3 decimals, symbol, groups of three", "ICU", Inputs().Lengths, {},
         [](double Value) { return Format.formatDouble(Value / 1000, Status).toString(Status); });
  AddRow("DisplayToStore, \"1,234.568 m\"", "ICU", Inputs().MetreTexts, {}, [](const std::u16string& Text) {
    Formattable Number;
    ParsePosition Place(0);
    Reader->parse(UnicodeString(false, Text.data(), static_cast<int32_t>(Text.size())), Number, Place);
    return Number.getDouble() * 1000;
  });
}
#else
void AddIcuRows() {}
#endif

} // namespace unitlib::bench
