#include "tests/nightly/LiteralText.h"

#include "unitlib/rtl/Decimal.h"
#include "unitlib/rtl/ExactRounding.h"
#include "unitlib/rtl/Numbers.h"

#include <charconv>
#include <numeric>

namespace unitlib::test {
namespace {

std::u16string Plain(TDecimal15 Value) {
  std::u16string Text;
  AppendPlain(Text, Value);
  return Text;
}

size_t DecimalsOf(std::u16string_view Text) {
  const size_t Point = Text.find(u'.');
  return Point == std::u16string_view::npos ? 0 : Text.size() - Point - 1;
}

std::u16string Grouped(std::u16string Text, int Size) {
  const size_t Whole = std::min(Text.find(u'.'), Text.size());
  for (size_t Pos = Whole; Pos > static_cast<size_t>(Size);)
    Text.insert(Pos -= static_cast<size_t>(Size), 1, u',');
  return Text;
}

struct TFraction {
  TExactNumber Numerator;
  TExactNumber Denominator;
};

TFraction FractionOf(std::u16string_view Increment) {
  const size_t Bar = Increment.find(u'/');
  if (Bar == std::u16string_view::npos) return {TExactNumber(Increment), TExactNumber(u"1")};
  return {TExactNumber(Increment.substr(0, Bar)), TExactNumber(Increment.substr(Bar + 1))};
}

std::u16string FractionText(const TFractionSplit& Split) {
  if (Split.Steps <= 0) return {};
  const std::int64_t Common = std::gcd(Split.Steps, Split.StepsPerOne);
  return u" " + IntToStr(Split.Steps / Common) + u"/" + IntToStr(Split.StepsPerOne / Common);
}

} // namespace

std::u16string LiteralNumber(double Shown, const TUnit& Unit, int GroupSize) {
  const TRound& Round = *Unit.GetCurRound();
  const TExactNumber Increment(Round.Increment.empty() ? u"1" : std::u16string_view(Round.Increment));
  const auto Rounded = Increment.Value == 0 ? std::nullopt : RoundToMultipleExact(Shown, Increment);
  const std::u16string Number = Rounded ? Plain(*Rounded) : FloatToPlainStr(Shown);
  std::u16string Text = GroupSize == 0 ? Number : Grouped(Number, GroupSize);
  if (Unit.SuppressTrail0.Checked) return Text;
  const size_t Have = DecimalsOf(Number);
  const size_t Wanted =
      DecimalsOf(Round.IncrementCanEdit ? Round.Increment : FloatToPlainStr(Increment.Value));
  if (Wanted > Have) Text += (Have == 0 ? u"." : u"") + std::u16string(Wanted - Have, u'0');
  return Text;
}

std::u16string LiteralInches(double Inches, const TUnit& Unit) {
  const TFraction Step = FractionOf(Unit.GetCurRound()->Increment);
  const TFractionSplit Split = SplitByFractionExact(Inches, Step.Numerator, Step.Denominator);
  return IntToStr(Split.Whole) + FractionText(Split) + u"\"";
}

std::u16string LiteralFeet(double Inches, const TUnit& Unit) {
  const std::u16string& Increment = Unit.GetCurRound()->Increment;
  const TFraction Step = FractionOf(Increment);
  const TFractionSplit Split = SplitByFractionExact(Inches, Step.Numerator, Step.Denominator);
  const bool IsFraction = Increment.find(u'/') != std::u16string::npos;
  const std::int64_t Whole = IsFraction ? 0 : static_cast<std::int64_t>(Step.Numerator.Value);
  const bool WholeFeet = !IsFraction && Whole % 12 == 0, WholeInches = Whole > 0 && Whole < 12;
  std::u16string Text;
  if (WholeFeet || Split.Whole / 12 != 0 || !Unit.Suppress0Feet.Checked) {
    Text = IntToStr(Split.Whole / 12) + u"'";
    if (WholeFeet) return Text;
    if (!Unit.SuppressSpace.Checked) Text += u' ';
  }
  Text += IntToStr(Split.Whole % 12);
  return Text + (WholeInches ? u"" : FractionText(Split)) + u"\"";
}

double LiteralValue(std::u16string_view Text) {
  std::string Narrow;
  for (const char16_t C : Text)
    if (C != u',') Narrow.push_back(static_cast<char>(C));
  double Value = 0;
  std::from_chars(Narrow.data(), Narrow.data() + Narrow.size(), Value);
  return Value;
}

std::string LiteralDigits(double Value) {
  char Text[40];
  return {Text, std::to_chars(Text, Text + sizeof Text, Value, std::chars_format::scientific, 14).ptr};
}

} // namespace unitlib::test
