#include "unitlib/convert/ZELUnitLengthConvertor.h"

#include "unitlib/model/ZELUnitConst.h"
#include "unitlib/rtl/Errors.h"
#include "unitlib/rtl/ExactRounding.h"
#include "unitlib/rtl/Numbers.h"
#include "unitlib/rtl/Text.h"

#include <bit>
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

/// An increment "1/2", "1/4" ... "1/65536", as nearly all of them are: the binary logarithm of its
/// denominator; -1 for every other text. 35 ns less than reading two numbers.
int PowerOf2Increment(std::u16string_view Text) noexcept {
  if (Text.size() < 3 || Text.size() > 7 || Text[0] != u'1' || Text[1] != u'/') return -1;
  unsigned Denominator = 0;
  for (const char16_t C : Text.substr(2)) {
    if (!IsDigit(C)) return -1;
    Denominator = Denominator * 10 + static_cast<unsigned>(C - u'0');
  }
  const bool IsPower = Denominator != 0 && (Denominator & (Denominator - 1)) == 0;
  return Denominator <= 65536 && IsPower ? std::countr_zero(Denominator) : -1;
}

/// A length in whole inches and, where Steps is not 0, a fraction with the denominator 2^Shift; the usual
/// case.
struct TBinaryLength {
  std::int64_t Whole = 0;
  std::int64_t Steps = 0;
  int Shift = 0;

  /// False where the increment or the value is not of the usual kind.
  bool Split(double Inches, std::u16string_view Increment) {
    Shift = PowerOf2Increment(Increment);
    return Shift >= 0 && SplitByPowerOf2(std::fabs(Inches), Shift, Whole, Steps);
  }

  /// Writes the reduced fraction with a blank before it.
  char16_t* WriteFraction(char16_t* Out) const {
    if (Steps == 0) return Out;
    const int Common = std::countr_zero(static_cast<std::uint64_t>(Steps));
    *Out++ = u' ';
    Out = WriteInteger(Out, static_cast<std::uint64_t>(Steps) >> Common);
    *Out++ = u'/';
    return WriteInteger(Out, std::uint64_t{1} << (Shift - Common));
  }
};

constexpr std::int64_t InchesPerFoot = 12;
constexpr size_t LengthRoom = 80; // three numbers, a foot mark, blanks and a bar

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
  Builder.reserve(UsualLength);
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
  if (TBinaryLength Length; Length.Split(Value, IncrementText(*GetUnit()))) {
    char16_t Text[LengthRoom];
    const char16_t* const End =
        Length.WriteFraction(WriteInteger(Text, static_cast<std::uint64_t>(Length.Whole)));
    Builder.append(Text, static_cast<size_t>(End - Text));
    return;
  }
  const TFractionSplit Split = SplitLength(Value, TIncrement(IncrementText(*GetUnit())));
  AppendInteger(Builder, Split.Whole);
  AppendFraction(Builder, Split);
}

void TFeetAndFractionalInchParser::AppendSymbol(TStringBuilder& Builder) const {
  if (!IsRoundToHighUnitInCoupleUnit()) TFractionalLengthParser::AppendSymbol(Builder);
}

void TFeetAndFractionalInchParser::RoundOff(double Value, TStringBuilder& Builder, bool, bool) const {
  if (TBinaryLength Length; Length.Split(Value, IncrementText(*GetUnit()))) {
    char16_t Text[LengthRoom];
    char16_t* End = Text;
    const auto Feet = static_cast<std::uint64_t>(Length.Whole / InchesPerFoot);
    if (Feet != 0 || !GetUnit()->Suppress0Feet.Checked) {
      End = WriteInteger(End, Feet);
      *End++ = FootMark;
      if (!GetUnit()->SuppressSpace.Checked) *End++ = u' ';
    }
    End = WriteInteger(End, static_cast<std::uint64_t>(Length.Whole % InchesPerFoot));
    End = Length.WriteFraction(End);
    Builder.append(Text, static_cast<size_t>(End - Text));
    return;
  }
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
  if (PowerOf2Increment(IncrementText(*GetUnit())) >= 0) return false;
  return TIncrement(IncrementText(*GetUnit())).IsWholeFeet();
}

bool TFeetAndFractionalInchParser::IsRoundToLowUnitInCoupleUnit() const {
  return TIncrement(IncrementText(*GetUnit())).IsWholeInches();
}

} // namespace unitlib
