#include "tests/nightly/FastPathComparison.h"

#include "tests/checksums/Random.h"
#include "tests/nightly/LiteralText.h"
#include "tests/support/OneUnit.h"
#include "unitlib/rtl/Decimal.h"
#include "unitlib/rtl/ExactRounding.h"
#include "unitlib/rtl/Numbers.h"
#include "unitlib/rtl/Text.h"

#include <charconv>
#include <cmath>

namespace unitlib::test {
namespace {

constexpr std::u16string_view Decimals[] = {u"1000",  u"100",      u"10",   u"1",     u"0.1",  u"0.01",
                                            u"0.001", u"0.0001",   u"0.5",  u"0.25",  u"0.05", u"0.010",
                                            u"7",     u"0.3",      u"1e-3", u"12.5",  u"",     u"2.50",
                                            u"1.",    u"0.000001", u"-0.5", u"33.33", u"0"};
constexpr std::u16string_view Fractions[] = {
    u"1/2", u"1/4", u"1/8", u"1/16", u"1/32", u"1/64", u"1/128", u"1/256", u"1/512", u"12",    u"6",    u"1",
    u"3",   u"3/8", u"1/3", u"1/10", u"5/16", u"1/1",  u"2/4",   u"24",    u"1.0",   u"1/016", u"0.5/8"};
constexpr std::u16string_view Classes[] = {u"TMetreParser",
                                           u"TCentimeterParser",
                                           u"TMillimetreParser",
                                           u"TSquareFootParser",
                                           u"TSquareMeterParser",
                                           u"TSquareInchParser",
                                           u"TCubicYardParser",
                                           u"TCubicFootParser",
                                           u"TCubicMeterParser",
                                           u"TDecimalFeetParser",
                                           u"TDecimalInchParser",
                                           u"TPoundPerFootParser",
                                           u"TBangParser",
                                           u"TShortTonParser",
                                           u"TKilogramsParser",
                                           u"TPoundPerCubicYardParser",
                                           u"TCubicYardsPerSquareFeetParser",
                                           u"TSquareCentimetreParser",
                                           u"TCubicInchParser"};

using checksums::TRandom;

double PowerOf10(int Exponent) {
  double Value = 1;
  for (int I = 0; I < std::abs(Exponent); ++I) Value *= 10;
  return Exponent < 0 ? 1 / Value : Value;
}

/// Value moved by a few of its last bits.
double Beside(double Value, int Steps) {
  for (; Steps > 0; --Steps) Value = std::nextafter(Value, 1e300);
  for (; Steps < 0; ++Steps) Value = std::nextafter(Value, 0.0);
  return Value;
}

/// A value >= 0: of any magnitude, on or beside a tie or multiple of Step, or on or beside a power of ten.
double Draw(TRandom& Random, double Step) {
  const double Uniform = std::ldexp(static_cast<double>(Random.Next() >> 11), -53);
  const double Magnitude = PowerOf10(Random.Below(17) - 3);
  const double Count = std::floor(Uniform * Magnitude);
  switch (Random.Below(5)) {
  case 0:
    return Beside((Count + 0.5) * Step, Random.Below(7) - 3);
  case 1:
    return Beside(Count * Step, Random.Below(7) - 3);
  case 2:
    return Beside(std::fabs(Magnitude - Step / 2), Random.Below(9) - 4);
  case 3: // as typed: few decimals
    return std::floor(Uniform * Magnitude * 1000) / PowerOf10(Random.Below(6));
  default:
    return Uniform * Magnitude;
  }
}

class TComparer {
public:
  explicit TComparer(std::uint64_t Seed) : FRandom(Seed) {}

  TComparison Run(std::uint64_t Count) {
    while (FResult.Count < Count) {
      if (FRandom.OneIn(4))
        CompareFractions();
      else
        CompareDecimals();
      for (int I = 0; I < 16; ++I) CompareTexts();
    }
    return FResult;
  }

private:
  void Check(std::u16string_view What, double Value, std::u16string_view Shown, std::u16string_view Literal) {
    ++FResult.Count;
    if (Shown == Literal) return;
    if (FResult.Different++ > 0) return;
    char Text[64];
    const std::string Hex(Text, std::to_chars(Text, Text + sizeof Text, Value, std::chars_format::hex).ptr);
    FResult.First = ToUtf8(What) + " value 0x" + Hex + ": \"" + ToUtf8(Shown) + "\" instead of \"" +
                    ToUtf8(Literal) + "\"";
  }

  void CompareDecimals() {
    const auto& Class = FRandom.Pick(Classes);
    const auto& Increment = FRandom.Pick(Decimals);
    TOneUnit Unit(Class, Increment, FRandom.OneIn(2));
    Unit.Unit.SuppressTrail0.Checked = FRandom.OneIn(3);
    const auto Parser = Unit.Parser();
    const double Scale = Parser->GetScale(-1);
    double Step = 1;
    TryStrToFloat(Increment, Step);
    Step = Step == 0 ? 1 : std::fabs(Step);
    for (int I = 0; I < 64; ++I) {
      const double Shown = Draw(FRandom, Step), Value = Shown * Scale;
      const double Divided = Value / Scale;
      std::u16string Text;
      Parser->RoundOff(Divided, Text, true, false);
      Check(std::u16string(Class) + u" increment " + std::u16string(Increment), Divided, Text,
            LiteralNumber(Divided, Unit.Unit, 0));
      CompareGroups(Unit.Unit, Divided);
    }
  }

  /// The writer with groups, which the settings of the process would choose.
  void CompareGroups(const TUnit& Unit, double Value) {
    const std::u16string& Increment = Unit.GetCurRound()->Increment;
    const TExactNumber Step(Increment.empty() ? u"1" : std::u16string_view(Increment));
    std::uint64_t Whole = 0;
    if (!RoundToMultipleWhenClear(Value, Step, Whole)) return;
    for (const int Group : {3, 4}) {
      TUnit Bare;
      Bare.SuppressTrail0.Checked = true;
      Bare.RoundContainer.Add().Increment = Increment;
      std::u16string Text;
      AppendFixed(Text, Whole, Step.Scale, 0, Group);
      Check(u"groups, increment " + Increment, Value, Text, LiteralNumber(Value, Bare, Group));
    }
  }

  void CompareFractions() {
    const auto& Increment = FRandom.Pick(Fractions);
    TOneUnit Feet(u"TFeetAndFractionalInchParser", Increment), Inches(u"TFractionalInchParser", Increment);
    Feet.Unit.Suppress0Feet.Checked = FRandom.OneIn(2);
    Feet.Unit.SuppressSpace.Checked = FRandom.OneIn(2);
    const auto FeetParser = Feet.Parser(), InchParser = Inches.Parser();
    for (int I = 0; I < 64; ++I) {
      const double Value = Draw(FRandom, 1.0 / (1 << FRandom.Below(10)));
      if (Value > 1e12) continue; // beyond it counts of fractions leave 64 bits
      std::u16string Text;
      FeetParser->RoundOff(Value, Text, false, false);
      FeetParser->AppendSymbol(Text);
      Check(u"feet, increment " + std::u16string(Increment), Value, Text, LiteralFeet(Value, Feet.Unit));
      Text.clear();
      InchParser->RoundOff(Value, Text, false, false);
      InchParser->AppendSymbol(Text);
      Check(u"inches, increment " + std::u16string(Increment), Value, Text,
            LiteralInches(Value, Inches.Unit));
    }
  }

  /// 15 digits written, and digits with commas read.
  void CompareTexts() {
    const double Value = Draw(FRandom, 1) * PowerOf10(FRandom.Below(9) - 4);
    const TDecimal15 Digits = ToDecimal15(Value);
    std::u16string Text;
    AppendGeneral(Text, Digits);
    const std::string Narrow = LiteralDigits(Value);
    Check(u"15 digits", Value, Text, FloatToStr(LiteralValue(std::u16string(Narrow.begin(), Narrow.end()))));
    std::u16string Number;
    const int Count = 1 + FRandom.Below(18);
    for (int I = 0; I < Count; ++I) {
      if (FRandom.OneIn(6)) Number += u',';
      Number += static_cast<char16_t>(u'0' + FRandom.Below(10));
    }
    if (FRandom.OneIn(2))
      Number.insert(static_cast<size_t>(FRandom.Below(static_cast<int>(Number.size()) + 1)), 1, u'.');
    const TNumberText Read = ReadNumberWithCommas(Number);
    ++FResult.Count;
    if (Read.Ok && Read.Value == LiteralValue(Number)) return;
    if (FResult.Different++ == 0) FResult.First = "reading \"" + ToUtf8(Number) + "\"";
  }

  TRandom FRandom;
  TComparison FResult;
};

} // namespace

TComparison CompareFastPaths(std::uint64_t Count, std::uint64_t Seed) {
  return TComparer(Seed).Run(Count);
}

} // namespace unitlib::test
