#include "unitlib/convert/ZELUnitLengthConvertor.h"

#include "unitlib/model/ZELUnitConst.h"
#include "unitlib/rtl/Errors.h"
#include "unitlib/rtl/ExactRounding.h"
#include "unitlib/rtl/Numbers.h"
#include "unitlib/rtl/Text.h"

#include <cmath>

namespace unitlib {
namespace {

/// An increment as two number texts, Numerator over Denominator.
struct TIncrementFraction {
  std::u16string_view Numerator;
  std::u16string_view Denominator = u"1";
  bool HasBar = false;
};

TIncrementFraction SplitIncrement(std::u16string_view Text) {
  const size_t Bar = Text.find(u'/');
  if (Bar == std::u16string_view::npos) return {Text};
  return {Text.substr(0, Bar), Text.substr(Bar + 1), true};
}

std::u16string_view IncrementText(const TUnit& Unit) {
  const TRound* Round = Unit.GetCurRound();
  return Round ? std::u16string_view(Round->Increment) : std::u16string_view();
}

/// A part of an increment, which must be a number other than 0.
TExactNumber ReadPart(std::u16string_view Text) {
  const TExactNumber Part(Text);
  if (Part.Value == 0)
    throw EConvertError(u"\"" + std::u16string(Text) + u"\" is not a rounding increment", Text);
  return Part;
}

void RequireFiniteLength(double Value) {
  if (!std::isfinite(Value)) FloatToStr(Value); // raises
}

TFractionSplit SplitLength(double Inches, std::u16string_view Increment) {
  RequireFiniteLength(Inches);
  const TIncrementFraction Parts = SplitIncrement(Increment);
  return SplitByFraction(std::fabs(Inches), ReadPart(Parts.Numerator), ReadPart(Parts.Denominator));
}

/// Whole inches of an increment without "/": trunc(numerator / 1); nothing is known about one with it.
bool WholeInches(std::u16string_view Increment, std::int64_t& Inches) {
  const TIncrementFraction Parts = SplitIncrement(Increment);
  const TExactNumber Numerator(Parts.Numerator), Denominator(Parts.Denominator);
  if (Parts.HasBar) return false;
  Inches = TruncQuotient(Numerator, Denominator);
  return true;
}

void AppendFraction(TStringBuilder& Builder, const TFractionSplit& Split) {
  if (Split.Steps <= 0) return;
  const std::int64_t Common = TFractionalLengthParser::GCD(Split.StepsPerOne, Split.Steps);
  if (Common == 0) return;
  Builder.append(u" ")
      .append(IntToStr(Split.Steps / Common))
      .append(u"/")
      .append(IntToStr(Split.StepsPerOne / Common));
}

} // namespace

void TDecimalImperialParser::AppendSymbol(TStringBuilder& Builder) const {
  Builder.append(GetUnitSymbol());
}

bool TDecimalImperialParser::IsValid(std::u16string_view Text) const {
  return TCommonUnitParser::IsValid(Text) || CheckFractionDisplay(Text);
}

double TDecimalImperialParser::AsDouble(std::u16string_view Text, int ScaleIndex) const {
  const std::u16string Rest = RemoveSymbol(Text);
  double Number = 0.0;
  if (TryStrToFloat(RemoveDelimiters(Rest), Number))
    return RequireStorable(Number * GetScale(ScaleIndex), Text);
  return AsFractionDouble(GetIdentifiableForm(Rest), ScaleIndex);
}

std::u16string TDecimalImperialParser::RemoveSymbol(std::u16string_view Text) const {
  std::u16string Rest = RemoveDelimiters(TCommonUnitParser::RemoveSymbol(Text));
  return IsNumeric(Rest) ? Rest : std::u16string(Text);
}

void TFractionalLengthParser::AppendSymbol(TStringBuilder& Builder) const {
  Builder.append(_SUnitInches);
}

bool TFractionalLengthParser::IsValid(std::u16string_view Text) const {
  if (Text.find(u'.') == std::u16string_view::npos && TCommonUnitParser::IsValid(Text)) return true;
  return CheckFractionDisplay(Text);
}

std::u16string TFractionalLengthParser::AsString(double Value, int ScaleIndex, bool NoSymbol,
                                                 bool NoDigitGroup, bool NoRound, bool NoPlusSign) const {
  TStringBuilder Builder;
  AppendNumber(Builder, Value, ScaleIndex, NoDigitGroup, NoRound, NoPlusSign);
  if (!NoSymbol || !CanIgnoreSymbol()) AppendSymbol(Builder);
  return Builder;
}

double TFractionalLengthParser::AsDouble(std::u16string_view Text, int ScaleIndex) const {
  return AsFractionDouble(Text, ScaleIndex);
}

double TFractionalLengthParser::ReadInches(std::u16string_view Text, int ScaleIndex) const {
  const std::u16string Rest = RemoveDelimiters(RemoveSymbol(Text));
  double Number = 0.0;
  if (TryStrToFloat(Rest, Number)) return RequireStorable(Number * GetScale(ScaleIndex), Text);
  return AsFractionDouble(Rest, ScaleIndex);
}

bool TFractionalLengthParser::GetFenZiFenMu(std::u16string_view Text, double& Numerator,
                                            double& Denominator) {
  const TIncrementFraction Parts = SplitIncrement(Text);
  Numerator = StrToFloat(Parts.Numerator);
  Denominator = StrToFloat(Parts.Denominator);
  return Parts.HasBar;
}

std::int64_t TFractionalLengthParser::GCD(std::int64_t A, std::int64_t B) noexcept {
  while (B != 0) {
    const std::int64_t Rest = B == -1 ? 0 : A % B; // the lowest integer has no remainder by -1
    A = B;
    B = Rest;
  }
  return A;
}

void TFractionalInchParser::RoundOff(double Value, TStringBuilder& Builder, bool, bool) const {
  const TFractionSplit Split = SplitLength(Value, IncrementText(*GetUnit()));
  Builder.append(IntToStr(Split.Whole));
  AppendFraction(Builder, Split);
}

void TFeetAndFractionalInchParser::AppendSymbol(TStringBuilder& Builder) const {
  if (!IsRoundToHighUnitInCoupleUnit()) TFractionalLengthParser::AppendSymbol(Builder);
}

void TFeetAndFractionalInchParser::RoundOff(double Value, TStringBuilder& Builder, bool, bool) const {
  constexpr std::int64_t InchesPerFoot = 12;
  TFractionSplit Split = SplitLength(Value, IncrementText(*GetUnit()));
  const std::int64_t Feet = Split.Whole / InchesPerFoot;
  const bool WholeFeet = IsRoundToHighUnitInCoupleUnit();
  if (WholeFeet || Feet != 0 || !GetUnit()->Suppress0Feet.Checked) {
    Builder.append(IntToStr(Feet)).append(_SUnitFeet1);
    if (WholeFeet) return;
    if (!GetUnit()->SuppressSpace.Checked) Builder.push_back(u' ');
  }
  Builder.append(IntToStr(Split.Whole % InchesPerFoot));
  if (!IsRoundToLowUnitInCoupleUnit()) AppendFraction(Builder, Split);
}

bool TFeetAndFractionalInchParser::IsRoundToHighUnitInCoupleUnit() const {
  std::int64_t Inches = 0;
  return WholeInches(IncrementText(*GetUnit()), Inches) && Inches % 12 == 0;
}

bool TFeetAndFractionalInchParser::IsRoundToLowUnitInCoupleUnit() const {
  std::int64_t Inches = 0;
  return WholeInches(IncrementText(*GetUnit()), Inches) && Inches > 0 && Inches < 12;
}

} // namespace unitlib
