/// What single conversions and those of columns share: the checks of their arguments and one conversion each.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace unitlib::capi {

/// The five flags of a conversion to text.
struct TDisplayFlags {
  bool AppendSymbol, NoSymbol, NoDigitGroup, NoRound, NoPlusSign;
};
/// errors      TFailure an unknown flag
TDisplayFlags ReadDisplayFlags(uint32_t Flags);
/// True when the text is to be checked first.
/// errors      TFailure an unknown flag
bool ReadCheckFlag(uint32_t Flags);

/// errors      TFailure no such measure, EListError no current unit, EConvertError no parser for it
void RequireParser(int32_t Measure);

/// A conversion of a measure whose parser has been asked for.
std::u16string DisplayText(int32_t Measure, double Value, int32_t Scale, const TDisplayFlags& Flags);
double StoredValue(int32_t Measure, std::u16string_view Text, int32_t Scale, bool Check);
double StoredDecimal(int32_t Measure, double Number, int32_t Scale);

/// Value of an arithmetic text.
struct TEvaluation {
  double Value;
  bool IsImperial; // a length, in metres
};
/// errors      TFailure the elevation measure, whose unit decides what is imperial, does not exist
void RequireExpressions();
/// errors      TFailure UL_ERROR_EXPRESSION
TEvaluation Evaluate(std::u16string_view Text);
double ExpressionValue(int32_t Measure, std::u16string_view Text, int32_t Scale);

} // namespace unitlib::capi
