/// Elevations: one length, or one variable with an offset, in their three forms.
#include "ExpressionTests.h"
#include "unitlib/rtl/Numbers.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <cstdlib>
#include <random>

namespace unitlib::test {
namespace {

// --- typed text to store form ---

struct TStoreRow {
  const char* Name;
  TLengthUnit Unit;
  std::u16string Text;
  std::u16string Store;
};

class ElevationStore : public TExpressionTest, public testing::WithParamInterface<TStoreRow> {};

TEST_P(ElevationStore, IsAccepted) {
  Use(GetParam().Unit);
  EXPECT_EQ(GetElevStoreValue(GetParam().Text), GetParam().Store);
  EXPECT_TRUE(CheckElevEditValue(GetParam().Text));
}

template <class TInfo> std::string NameOf(const TInfo& Info) {
  return Info.param.Name;
}

INSTANTIATE_TEST_SUITE_P(
    Single, ElevationStore,
    testing::Values(
        TStoreRow{"Millimetres", Millimeters, u"1500", u"1.5"},
        TStoreRow{"Centimetres", Centimeters, u"150.5", u"1.505"},
        TStoreRow{"Metres", Meters, u"2.5", u"2.5"}, TStoreRow{"DecimalFeet", DecimalFeet, u"5.5", u"1.6764"},
        TStoreRow{"DecimalFeetByMarks", DecimalFeet, u"5'6\"", u"1.6764"},
        TStoreRow{"FeetInches", FeetAndInches, u"5'6 1/2\"", u"1.6891"},
        TStoreRow{"FeetInchesPlainNumberIsInches", FeetAndInches, u"6", u"0.1524"},
        TStoreRow{"DecimalInches", DecimalInches, u"66.5", u"1.6891"},
        TStoreRow{"FractionalInches", FractionalInches, u"66 1/2\"", u"1.6891"},
        TStoreRow{"Negative", Millimeters, u"-1500", u"-1.5"},
        TStoreRow{"NegativeBlock", Millimeters, u"-(1500)", u"-1.5"},
        TStoreRow{"NegativeFeet", FeetAndInches, u"-5'6\"", u"-1.6764"},
        TStoreRow{"Sum", Millimeters, u"1+2*3", u"0.007"}, TStoreRow{"Block", Millimeters, u"(1000)", u"1"},
        TStoreRow{"ImperialSum", FeetAndInches, u"5'+6 1/2\"", u"1.6891"},
        TStoreRow{"ImperialTimes", FeetAndInches, u"5'6\"*2", u"3.3528"},
        TStoreRow{"BlanksAround", Millimeters, u"  1500 ", u"1.5"},
        // Alone a small length keeps its exponent, beside an operator it is written out.
        TStoreRow{"Small", Millimeters, u"0.001", u"1E-6"}, TStoreRow{"Zero", Millimeters, u"-0", u"0"}),
    NameOf<testing::TestParamInfo<TStoreRow>>);

INSTANTIATE_TEST_SUITE_P(
    AroundAVariable, ElevationStore,
    testing::Values(TStoreRow{"Variable", Millimeters, u"Level 1", u"Level 1"},
                    TStoreRow{"Plus", Millimeters, u"A+500", u"A+0.5"},
                    TStoreRow{"Minus", Millimeters, u"A-500", u"A-0.5"},
                    TStoreRow{"NumberFirst", Millimeters, u"500+A", u"0.5+A"},
                    TStoreRow{"FromNumber", Millimeters, u"500-A", u"0.5-A"},
                    TStoreRow{"Small", Millimeters, u"A+0.001", u"A+0.000001"},
                    TStoreRow{"TwoOffsets", Millimeters, u"A+500+300", u"A+0.8"},
                    TStoreRow{"OneOffsetOutOfBrackets", Millimeters, u"1000-(A+500)", u"0.5-A"},
                    TStoreRow{"NegativeOffset", Millimeters, u"A+-500", u"A+(-0.5)"},
                    TStoreRow{"NegatedSum", Millimeters, u"-(A+500)", u"A*(-1)-0.5"},
                    TStoreRow{"NegatedVariable", Millimeters, u"-(A)", u"A*(-1)"},
                    TStoreRow{"TwoNegations", Millimeters, u"-(-(A))", u"A"},
                    TStoreRow{"Product", Millimeters, u"A*2", u"A*2"},
                    TStoreRow{"Quotient", Millimeters, u"2/A", u"2/A"},
                    TStoreRow{"ProductAndOffset", Millimeters, u"2*A+500", u"2*A+0.5"},
                    TStoreRow{"ProductOfASum", Millimeters, u"2*(A+500)", u"A*2+1"},
                    TStoreRow{"Block", Millimeters, u"(A+500)", u"(A+0.5)"},
                    TStoreRow{"Feet", FeetAndInches, u"A+5'6\"", u"A+1.6764"},
                    TStoreRow{"FeetFraction", FeetAndInches, u"A-5' 6 1/2\"", u"A-1.6891"},
                    TStoreRow{"PlainInches", FeetAndInches, u"A+6", u"A+0.1524"},
                    TStoreRow{"FeetAreANameInMetres", Meters, u"5'+2", u"5'+2"}),
    NameOf<testing::TestParamInfo<TStoreRow>>);

// --- store form to edit and display form ---

struct TShownRow {
  const char* Name;
  TLengthUnit Unit;
  std::u16string Store;
  std::u16string Edit;
  std::u16string Display;
};

class ElevationShown : public TExpressionTest, public testing::WithParamInterface<TShownRow> {};

TEST_P(ElevationShown, InTheCurrentUnit) {
  Use(GetParam().Unit);
  EXPECT_EQ(GetElevEditValue(GetParam().Store), GetParam().Edit);
  EXPECT_EQ(GetElevDisplayValue(GetParam().Store), GetParam().Display);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, ElevationShown,
    testing::Values(TShownRow{"Millimetres", Millimeters, u"1.5", u"1500", u"1500"},
                    TShownRow{"Centimetres", Centimeters, u"1.505", u"150.5", u"150.5"},
                    TShownRow{"Metres", Meters, u"2.5", u"2.500", u"2.500"},
                    TShownRow{"MetresUnroundedInEditForm", Meters, u"2.50049", u"2.50049", u"2.500"},
                    TShownRow{"DecimalFeet", DecimalFeet, u"1.6764", u"5.500", u"5.500"},
                    TShownRow{"FeetInches", FeetAndInches, u"1.6891", u"5' 6 1/2\"", u"5' 6 1/2\""},
                    TShownRow{"DecimalInches", DecimalInches, u"1.6891", u"66.500", u"66.500"},
                    TShownRow{"FractionalInches", FractionalInches, u"1.6891", u"66 1/2\"", u"66 1/2\""},
                    TShownRow{"NegativeHasNoBrackets", Millimeters, u"-1.5", u"-1500", u"-1500"},
                    TShownRow{"NegativeFeet", FeetAndInches, u"-1.6764", u"-5' 6\"", u"-5' 6\""},
                    TShownRow{"Variable", Millimeters, u"A", u"A", u"A"},
                    TShownRow{"Offset", Millimeters, u"A+0.5", u"A+500", u"A+500"},
                    TShownRow{"NegativeOffsetHasBrackets", Millimeters, u"A+(-0.5)", u"A+(-500)",
                              u"A+(-500)"},
                    TShownRow{"FromOffset", FeetAndInches, u"1.6891-A", u"5' 6 1/2\"-A", u"5' 6 1/2\"-A"},
                    TShownRow{"FractionalOffset", FractionalInches, u"A-0.0381", u"A-1 1/2\"", u"A-1 1/2\""},
                    TShownRow{"Product", Millimeters, u"A*(-1)", u"A*(-1)", u"A*(-1)"},
                    // An imperial length, too, is converted in edit and display form.
                    TShownRow{"ImperialOperand", DecimalFeet, u"5'6\"", u"5.500", u"5.500"},
                    TShownRow{"ImperialOperandInInches", FractionalInches, u"5'6\"", u"66\"", u"66\""}),
    NameOf<testing::TestParamInfo<TShownRow>>);

// --- refused ---

struct TRefusedRow {
  const char* Name;
  std::vector<TLengthUnit> Units;
  std::u16string Text;
};

class ElevationRefused : public TExpressionTest, public testing::WithParamInterface<TRefusedRow> {};

TEST_P(ElevationRefused, ComesBackUnchanged) {
  for (const TLengthUnit Unit : GetParam().Units) {
    Use(Unit);
    EXPECT_EQ(GetElevStoreValue(GetParam().Text), GetParam().Text);
    EXPECT_EQ(GetElevEditValue(GetParam().Text), GetParam().Text);
    EXPECT_EQ(GetElevDisplayValue(GetParam().Text), GetParam().Text);
    EXPECT_FALSE(CheckElevEditValue(GetParam().Text));
  }
}

INSTANTIATE_TEST_SUITE_P(
    Rows, ElevationRefused,
    testing::Values(TRefusedRow{"Empty", Every, u""}, TRefusedRow{"Blanks", Every, u"  "},
                    TRefusedRow{"TwoVariables", Every, u"A+B"},
                    TRefusedRow{"SameVariableTwice", Every, u"A-A"},
                    TRefusedRow{"EndsInOperator", Every, u" 5+ "}, TRefusedRow{"Function", Every, u"f(3)"},
                    TRefusedRow{"DivisionByZero", Every, u"6/0"}, TRefusedRow{"TooBig", Every, u"1e16"},
                    TRefusedRow{"ImperialPlusPlain", Imperial, u"5'+3"},
                    TRefusedRow{"VariableTimesImperial", Imperial, u"A*5'"},
                    TRefusedRow{"NegativeFraction", Imperial, u"-5' 6 1/2\""},
                    TRefusedRow{"NegativeFractionInBrackets", Imperial, u"A+(-5' 6 1/2\")"},
                    TRefusedRow{"BadFeet", Imperial, u"A+5''"}),
    NameOf<testing::TestParamInfo<TRefusedRow>>);

class Elevation : public TExpressionTest {};

TEST_F(Elevation, DecimalNumberIsNoFeetAndInches) {
  for (const TLengthUnit Unit : {FeetAndInches, FractionalInches}) {
    Use(Unit);
    EXPECT_FALSE(CheckElevEditValue(u"2.5"));
    EXPECT_EQ(GetElevStoreValue(u"2.5"), u"2.5");
    EXPECT_FALSE(CheckElevEditValue(u"A+2.5"));
    EXPECT_EQ(GetElevStoreValue(u"A+2.5"), u"A+2.5");
  }
}

TEST_F(Elevation, NoLocaleLeaksIn) {
  const std::string Old = std::setlocale(LC_ALL, nullptr);
  // The test run under a decimal comma names its locale; elsewhere the locale of the machine serves.
  const char* Name = std::getenv("UNITLIB_TEST_LOCALE");
  ASSERT_NE(std::setlocale(LC_ALL, Name ? Name : ""), nullptr);
  if (Name) {
    ASSERT_STREQ(std::localeconv()->decimal_point, ",");
  }
  Use(Meters);
  EXPECT_EQ(GetElevStoreValue(u"A+1.5-0.25"), u"A+1.25");
  EXPECT_EQ(GetElevEditValue(u"1.5"), u"1.500");
  EXPECT_EQ(GetElevStoreValue(u"1,5"), u"1,5"); // a name
  Use(DecimalFeet);
  EXPECT_EQ(GetElevStoreValue(u"2.5'"), u"0.762");
  EXPECT_EQ(GetElevDisplayValue(u"A-0.762"), u"A-2.500");
  EXPECT_EQ(MergedText(u"1/3+A*(5/2)"), "A*2.5+0.333333333333333");
  std::setlocale(LC_ALL, Old.c_str());
}

// --- round trips ---

/// Half of the current increment in metres, and a little for the 15 digits of the texts.
double Tolerance(const TUnit& Unit, TLengthUnit Kind, double Meter) {
  const double Digits = 1e-14 * std::fabs(Meter) + 1e-17;
  if (Kind != FeetAndInches && Kind != FractionalInches) return Digits; // edit texts are not rounded
  const std::u16string& Increment = Unit.GetCurRound()->Increment;
  const size_t Bar = Increment.find(u'/');
  const double Inches = Bar == std::u16string::npos
                            ? StrToFloat(Increment)
                            : StrToFloat(Increment.substr(0, Bar)) / StrToFloat(Increment.substr(Bar + 1));
  return Inches * 0.0254 / 2 * (1 + 1e-9) + Digits;
}

bool IsNegativeFraction(const std::u16string& Edit) {
  return Edit.starts_with(u'-') && Edit.find(u'/') != std::u16string::npos;
}

void ExpectRoundTrip(const TUnit& Unit, TLengthUnit Kind, double Meter) {
  const std::u16string Store = FloatToStr(Meter);
  const std::u16string Edit = GetElevEditValue(Store);
  SCOPED_TRACE("store " + ToUtf8(Store) + " edit " + ToUtf8(Edit) + " increment " +
               ToUtf8(Unit.GetCurRound()->Increment));
  const std::u16string Back = GetElevStoreValue(Edit);
  if (IsNegativeFraction(Edit)) { // cannot be typed: refused, unchanged, never misread
    EXPECT_FALSE(CheckElevEditValue(Edit));
    EXPECT_EQ(Back, Edit);
    return;
  }
  EXPECT_TRUE(CheckElevEditValue(Edit));
  double Value = 0;
  ASSERT_TRUE(TryStrToFloat(Back, Value)) << ToUtf8(Back);
  EXPECT_LE(std::fabs(Value - Meter), Tolerance(Unit, Kind, Meter));
}

/// The same around a variable: the offset never is a negative fraction there.
void ExpectOffsetRoundTrip(const TUnit& Unit, TLengthUnit Kind, double Meter) {
  const std::u16string Store = (Meter < 0 ? u"A-" : u"A+") + FloatToPlainStr(std::fabs(Meter));
  const std::u16string Edit = GetElevEditValue(Store);
  SCOPED_TRACE("store " + ToUtf8(Store) + " edit " + ToUtf8(Edit));
  const std::u16string Back = GetElevStoreValue(Edit);
  EXPECT_TRUE(CheckElevEditValue(Edit));
  ASSERT_TRUE(Back.starts_with(Meter < 0 ? u"A-" : u"A+")) << ToUtf8(Back);
  double Value = 0;
  ASSERT_TRUE(TryStrToFloat(Back.substr(2), Value)) << ToUtf8(Back);
  EXPECT_LE(std::fabs(Value - std::fabs(Meter)), Tolerance(Unit, Kind, Meter));
}

class ElevationRoundTrip : public TExpressionTest, public testing::WithParamInterface<TLengthUnit> {};

TEST_P(ElevationRoundTrip, StaysWithinHalfAnIncrement) {
  constexpr unsigned Seed = 20240601;
  SCOPED_TRACE("seed " + std::to_string(Seed));
  std::mt19937 Random(Seed);
  TUnit& Unit = Use(GetParam());
  const int Chosen = Unit.CurRoundIndex;
  for (int Round = 0; Round < Unit.RoundContainer.Count(); ++Round) {
    Unit.CurRoundIndex = Round;
    if (Unit.GetCurRound()->Increment.empty()) continue;
    for (int I = 0; I < 400 && !HasFailure(); ++I) {
      // Fixed form starts at 0.00001 m; 12.7 mm steps hit ties of the fractions.
      const double Meter = I % 4 == 0 ? 0.0127 / 16 * static_cast<double>(Random() % 5000)
                                      : 1e-5 * static_cast<double>(Random() % 100'000'000);
      for (const double Signed : {Meter, -Meter}) {
        ExpectRoundTrip(Unit, GetParam(), Signed);
        ExpectOffsetRoundTrip(Unit, GetParam(), Signed);
      }
    }
  }
  Unit.CurRoundIndex = Chosen;
}

std::string UnitName(const testing::TestParamInfo<TLengthUnit>& Info) {
  constexpr const char* Names[] = {"DecimalFeet", "FeetAndInches", "DecimalInches", "FractionalInches",
                                   "Meters",      "Centimeters",   "Millimeters"};
  return Names[Info.param];
}

INSTANTIATE_TEST_SUITE_P(EveryUnit, ElevationRoundTrip, testing::ValuesIn(Every), UnitName);

} // namespace
} // namespace unitlib::test
