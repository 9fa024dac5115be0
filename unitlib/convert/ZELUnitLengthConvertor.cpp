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

void RequireNotZero(const TExactNumber& Part) {
  if (Part.Value == 0)
    throw EConvertError(u"\"" + std::u16string(Part.Text) + u"\" is not a rounding increment", Part.Text);
}

void RequireFiniteLength(double Value) {
  if (!std::isfinite(Value)) FloatToStr(Value); // raises
}

/// Whole inches of an increment without "/": trunc(numerator / 1).
std::int64_t WholeInches(const TExactNumber& Numerator) {
  const bool Small = Numerator.IsSimple && std::fabs(Numerator.Value) < 1e9;
  return Small ? static_cast<std::int64_t>(Numerator.Value) : TruncQuotient(Numerator, TExactNumber(u"1"));
}

/// An increment, read once.
struct TIncrement {
  explicit TIncrement(std::u16string_view Text)
      : Parts(SplitIncrement(Text)), Numerator(Parts.Numerator), Denominator(Parts.Denominator) {}

  bool IsWholeFeet() const { return !Parts.HasBar && WholeInches(Numerator) % 12 == 0; }
  bool IsWholeInches() const {
    const std::int64_t Inches = Parts.HasBar ? 0 : WholeInches(Numerator);
    return Inches > 0 && Inches < 12;
  }

  TIncrementFraction Parts;
  TExactNumber Numerator;
  TExactNumber Denominator;
};

TFractionSplit SplitLength(double Inches, const TIncrement& Increment, bool WithFraction = true) {
  RequireFiniteLength(Inches);
  RequireNotZero(Increment.Numerator);
  RequireNotZero(Increment.Denominator);
  return SplitByFraction(std::fabs(Inches), Increment.Numerator, Increment.Denominator, WithFraction);
}

void AppendFraction(TStringBuilder& Builder, const TFractionSplit& Split) {
  if (Split.Steps <= 0) return;
  const std::int64_t Common = TFractionalLengthParser::GCD(Split.StepsPerOne, Split.Steps);
  if (Common == 0) return;
  Builder.push_back(u' ');
  AppendInteger(Builder, Split.Steps / Common);
  Builder.push_back(u'/');
  AppendInteger(Builder, Split.StepsPerOne / Common);
}

} // namespace

void TDecimalImperialParser::AppendSymbol(TStringBuilder& Builder) const {
  Builder.append(GetUnitSymbol());
}

bool TDecimalImperialParser::IsValid(std::u16string_view Text) const {
  return TCommonUnitParser::IsValid(Text) || CheckFractionDisplay(Text);
}

double TDecimalImperialParser::AsDouble(std::u16string_view Text, int ScaleIndex) const {
  std::u16string Buffer;
  const std::u16string_view Rest = CutSymbol(Text, Buffer);
  const TNumberText Number = ReadNumberWithCommas(Rest);
  if (Number.Ok) return RequireStorable(Number.Value * GetScale(ScaleIndex), Text);
  return AsFractionDouble(GetIdentifiableForm(Rest), ScaleIndex);
}

std::u16string TDecimalImperialParser::RemoveSymbol(std::u16string_view Text) const {
  std::u16string Rest = RemoveDelimiters(TCommonUnitParser::RemoveSymbol(Text));
  return IsNumeric(Rest) ? Rest : std::u16string(Text);
}

/// The commas may stay: whoever asks reads over them.
std::u16string_view TDecimalImperialParser::CutSymbol(std::u16string_view Text, std::u16string&) const {
  const std::u16string_view Rest = WithoutSymbol(Text);
  return ReadNumberWithCommas(Rest).Ok ? Rest : Text;
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
  Builder.reserve(31);
  AppendNumber(Builder, Value, ScaleIndex, NoDigitGroup, NoRound, NoPlusSign);
  if (!NoSymbol || !CanIgnoreSymbol()) AppendSymbol(Builder);
  return Builder;
}

double TFractionalLengthParser::AsDouble(std::u16string_view Text, int ScaleIndex) const {
  return AsFractionDouble(Text, ScaleIndex);
}

double TFractionalLengthParser::ReadInches(std::u16string_view Text, int ScaleIndex) const {
  std::u16string Buffer;
  const std::u16string_view Rest = CutSymbol(Text, Buffer);
  const TNumberText Number = ReadNumberWithCommas(Rest);
  if (Number.Ok) return RequireStorable(Number.Value * GetScale(ScaleIndex), Text);
  if (Rest.find(u',') == std::u16string_view::npos) return AsFractionDouble(Rest, ScaleIndex);
  return AsFractionDouble(RemoveDelimiters(Rest), ScaleIndex);
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
  const TFractionSplit Split = SplitLength(Value, TIncrement(IncrementText(*GetUnit())));
  AppendInteger(Builder, Split.Whole);
  AppendFraction(Builder, Split);
}

void TFeetAndFractionalInchParser::AppendSymbol(TStringBuilder& Builder) const {
  if (!IsRoundToHighUnitInCoupleUnit()) TFractionalLengthParser::AppendSymbol(Builder);
}

void TFeetAndFractionalInchParser::RoundOff(double Value, TStringBuilder& Builder, bool, bool) const {
  constexpr std::int64_t InchesPerFoot = 12;
  const TIncrement Increment(IncrementText(*GetUnit()));
  const bool WholeFeet = Increment.IsWholeFeet();
  const TFractionSplit Split = SplitLength(Value, Increment, !WholeFeet);
  const std::int64_t Feet = Split.Whole / InchesPerFoot;
  if (WholeFeet || Feet != 0 || !GetUnit()->Suppress0Feet.Checked) {
    AppendInteger(Builder, Feet);
    Builder.append(_SUnitFeet1);
    if (WholeFeet) return;
    if (!GetUnit()->SuppressSpace.Checked) Builder.push_back(u' ');
  }
  AppendInteger(Builder, Split.Whole % InchesPerFoot);
  if (!Increment.IsWholeInches()) AppendFraction(Builder, Split);
}

bool TFeetAndFractionalInchParser::IsRoundToHighUnitInCoupleUnit() const {
  return TIncrement(IncrementText(*GetUnit())).IsWholeFeet();
}

bool TFeetAndFractionalInchParser::IsRoundToLowUnitInCoupleUnit() const {
  return TIncrement(IncrementText(*GetUnit())).IsWholeInches();
}

} // namespace unitlib
