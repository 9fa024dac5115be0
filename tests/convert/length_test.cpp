/// Decimal and fractional imperial lengths.
#include "tests/support/OneUnit.h"
#include "tests/support/Settings.h"
#include "unitlib/convert/ZELUnitLengthConvertor.h"
#include "unitlib/rtl/Errors.h"

#include <gtest/gtest.h>

namespace unitlib {
namespace {

using test::TOneUnit;

// ---------------------------------------------------------------- decimal feet and inches

TEST(DecimalFeet, WriteTheSymbolWithoutBlankAndReadItBack) {
  TOneUnit Unit(u"TDecimalFeetParser", u"1");
  Unit.Symbol(u"'");
  EXPECT_EQ(Unit.Show(1524), u"5'");
  EXPECT_DOUBLE_EQ(Unit.Read(u"5'"), 1524);
  EXPECT_DOUBLE_EQ(Unit.Read(u"5.5'"), 1676.4);
  EXPECT_DOUBLE_EQ(Unit.Read(u"1,000'"), 304800);
}

TEST(DecimalFeet, ReadImperialTextByItsOwnMarks) {
  TOneUnit Unit(u"TDecimalFeetParser");
  EXPECT_DOUBLE_EQ(Unit.Read(u"5'6\""), 1676.4);
  EXPECT_DOUBLE_EQ(Unit.Read(u"6\""), 152.4);
  EXPECT_DOUBLE_EQ(Unit.Read(u"3/4"), 19.05) << "inches, not feet";
  EXPECT_DOUBLE_EQ(Unit.Read(u"5"), 1524) << "a plain number is feet";
  EXPECT_DOUBLE_EQ(Unit.Read(u"5'6\"", 3), 1.6764);
  EXPECT_TRUE(Unit.Valid(u"5'6 1/2\""));
  EXPECT_TRUE(Unit.Valid(u"5-6"));
  EXPECT_FALSE(Unit.Valid(u"5-6\""));
  EXPECT_FALSE(Unit.Valid(u"5.5'")) << "the foot mark is no symbol of this unit";
}

TEST(DecimalInches, RefuseWhatIsNeitherNumberNorFraction) {
  TOneUnit Unit(u"TDecimalInchParser");
  Unit.Symbol(u"\"").Symbol(u"IN");
  EXPECT_FALSE(Unit.Valid(u"abc"));
  EXPECT_EQ(Unit.Parser()->RemoveSymbol(u"abc"), u"abc");
  EXPECT_EQ(Unit.Parser()->RemoveSymbol(u"1,234 in"), u"1234 ");
  EXPECT_EQ(Unit.Parser()->RemoveSymbol(u"5'6\""), u"5'6\"") << "what is left would be no number";
  EXPECT_DOUBLE_EQ(Unit.Read(u"2.5\""), 63.5);
  EXPECT_EQ(Unit.Show(63.5), u"2.500IN");
  EXPECT_EQ(Unit.Read(u"abc"), 0);
}

// ---------------------------------------------------------------- fractional inches

struct TInchRow {
  const char* Name;
  double Inches;
  std::u16string_view Increment;
  std::u16string_view Text;
};

class FractionalInches : public testing::TestWithParam<TInchRow> {};

TEST_P(FractionalInches, AreShown) {
  TOneUnit Unit(u"TFractionalInchParser", GetParam().Increment);
  EXPECT_EQ(Unit.Show(GetParam().Inches * 25.4), GetParam().Text);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, FractionalInches,
    testing::Values(TInchRow{"Mixed", 2.5, u"1/16", u"2 1/2\""},
                    TInchRow{"BelowOne", 0.5, u"1/16", u"0 1/2\""}, TInchRow{"Carry", 2.97, u"1/16", u"3\""},
                    TInchRow{"CarryFromZero", 0.999, u"1/16", u"1\""}, TInchRow{"Zero", 0, u"1/16", u"0\""},
                    TInchRow{"Finest", 2 + 1.0 / 256, u"1/256", u"2 1/256\""},
                    TInchRow{"Reduced", 2.5, u"1/4", u"2 1/2\""}, TInchRow{"Whole", 2.5, u"1", u"3\""},
                    TInchRow{"Negative", -2.5, u"1/16", u"-2 1/2\""},
                    TInchRow{"Large", 1234567.5, u"1/2", u"1234567 1/2\""},
                    TInchRow{"Twelve", 17, u"12", u"12\""}, TInchRow{"Five", 23, u"5", u"25\""}),
    [](const auto& Info) { return Info.param.Name; });

TEST(FractionalInchRules, FlagsAndSymbolChoicePlayNoPart) {
  TOneUnit Unit(u"TFractionalInchParser", u"1/16");
  Unit.Symbol(u"IN");
  Unit.Unit.UseDigitGroup.Checked = Unit.Unit.ShowPlusForPosValue.Checked = true;
  EXPECT_EQ(Unit.Show(0), u"0\"");
  EXPECT_EQ(Unit.Show(25400), u"+1000\"");
  EXPECT_EQ(Unit.Parser()->AsString(63.51, -1, true, false, true, true), u"2 1/2")
      << "rounded all the same, mark dropped";
}

struct TBadIncrementRow {
  std::u16string_view Increment;
};

TEST(FractionalInchRules, ABadIncrementRaises) {
  for (std::u16string_view Bad : {u"", u"x", u"1/0", u"0", u"0/4", u"1/", u"/2", u"1/2/3", u"1/x"}) {
    EXPECT_THROW(TOneUnit(u"TFractionalInchParser", Bad).Show(25.4), EConvertError);
    EXPECT_THROW(TOneUnit(u"TFeetAndFractionalInchParser", Bad).Show(25.4), EConvertError);
  }
  TOneUnit NoRound(u"TFractionalInchParser");
  NoRound.Unit.CurRoundIndex = -1;
  EXPECT_THROW(NoRound.Show(25.4), EConvertError);
  EXPECT_THROW(TOneUnit(u"TFractionalInchParser", u"1/16").Show(1e300), ERangeError);
}

TEST(FractionalInchRules, ReadingIsInInches) {
  TOneUnit Unit(u"TFractionalInchParser", u"1/16");
  EXPECT_DOUBLE_EQ(Unit.Read(u"66"), 66 * 25.4);
  EXPECT_DOUBLE_EQ(Unit.Read(u"6 1/2"), 6.5 * 25.4);
  EXPECT_DOUBLE_EQ(Unit.Read(u"1,000"), 25400);
  EXPECT_DOUBLE_EQ(Unit.Read(u"5'"), 60 * 25.4);
  EXPECT_DOUBLE_EQ(Unit.Read(u"2.5"), 63.5) << "read though not valid";
  EXPECT_EQ(Unit.Read(u"abc"), 0);
  EXPECT_TRUE(Unit.Valid(u"66"));
  EXPECT_FALSE(Unit.Valid(u"2.5"));
  EXPECT_TRUE(Unit.Valid(u"1e3")) << "a number without a point is one";
  EXPECT_FALSE(Unit.Valid(u"1,000.5"));
}

// ---------------------------------------------------------------- feet and fractional inches

struct TFeetRow {
  const char* Name;
  double Inches;
  std::u16string_view Increment;
  bool Suppress0Feet;
  bool SuppressSpace;
  std::u16string_view Text;
};

class FeetAndInches : public testing::TestWithParam<TFeetRow> {};

TEST_P(FeetAndInches, AreShown) {
  TOneUnit Unit(u"TFeetAndFractionalInchParser", GetParam().Increment);
  Unit.Unit.Suppress0Feet.Checked = GetParam().Suppress0Feet;
  Unit.Unit.SuppressSpace.Checked = GetParam().SuppressSpace;
  EXPECT_EQ(Unit.Show(GetParam().Inches * 25.4), GetParam().Text);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, FeetAndInches,
    testing::Values(TFeetRow{"Spaced", 66.5, u"1/16", false, false, u"5' 6 1/2\""},
                    TFeetRow{"SpacedSuppress0", 66.5, u"1/16", true, false, u"5' 6 1/2\""},
                    TFeetRow{"Tight", 66.5, u"1/16", false, true, u"5'6 1/2\""},
                    TFeetRow{"TightSuppress0", 66.5, u"1/16", true, true, u"5'6 1/2\""},
                    TFeetRow{"NoFeet", 6.5, u"1/16", false, false, u"0' 6 1/2\""},
                    TFeetRow{"NoFeetSuppressed", 6.5, u"1/16", true, false, u"6 1/2\""},
                    TFeetRow{"WholeInches", 66.5, u"1", false, false, u"5' 7\""},
                    TFeetRow{"SixInches", 66.5, u"6", false, false, u"5' 6\""},
                    TFeetRow{"WholeFeet", 66.5, u"12", false, false, u"6'"},
                    TFeetRow{"TwoFeet", 66.5, u"24", false, false, u"6'"},
                    TFeetRow{"ZeroFeetStay", 3, u"12", true, false, u"0'"},
                    TFeetRow{"ZeroInUncountableSteps", 0, u"1e-84", false, false, u"0'"},
                    TFeetRow{"Negative", -66.5, u"1/16", false, false, u"-5' 6 1/2\""},
                    TFeetRow{"CarryIntoFoot", 11.99, u"1/8", false, false, u"1' 0\""},
                    TFeetRow{"ExactFeet", 60, u"1/16", false, false, u"5' 0\""},
                    TFeetRow{"OnlyInches", 3, u"1/16", false, false, u"0' 3\""},
                    TFeetRow{"Zero", 0, u"1/16", true, false, u"0\""},
                    TFeetRow{"ReducedFraction", 66.25, u"1/256", false, false, u"5' 6 1/4\""}),
    [](const auto& Info) { return Info.param.Name; });

TEST(FeetAndInchRules, AlwaysCarryTheirMarks) {
  TOneUnit Unit(u"TFeetAndFractionalInchParser", u"1/16");
  Unit.Symbol(u"FT");
  EXPECT_EQ(Unit.Parser()->AsString(1689.1, -1, true, true, true, true), u"5' 6 1/2\"");
  Unit.Unit.ShowPlusForPosValue.Checked = true;
  EXPECT_EQ(Unit.Show(1689.1), u"+5' 6 1/2\"");
  EXPECT_EQ(Unit.Show(1.6891, 3), u"+5' 6 1/2\"");
}

TEST(FeetAndInchRules, APlainNumberIsInches) {
  TOneUnit Unit(u"TFeetAndFractionalInchParser", u"1/16");
  EXPECT_DOUBLE_EQ(Unit.Read(u"66"), 66 * 25.4);
  EXPECT_DOUBLE_EQ(Unit.Read(u"5' 6 1/2\""), 1689.1);
  EXPECT_DOUBLE_EQ(Unit.Read(u"-5' 6 1/2\""), -1689.1);
  EXPECT_DOUBLE_EQ(Unit.Read(u"5-6"), 1676.4);
}

TEST(FeetAndInchRules, TellWhatTheyRoundTo) {
  struct TRow {
    std::u16string_view Increment;
    bool High, Low;
  };
  for (const TRow& Row : {TRow{u"12", true, false},
                          {u"24", true, false},
                          {u"0.5", true, false},
                          {u"6", false, true},
                          {u"1", false, true},
                          {u"1/2", false, false},
                          {u"13", false, false},
                          {u"12/1", false, false},
                          {u"11.9", false, true},
                          {u"-3", false, false}}) {
    TOneUnit Unit(u"TFeetAndFractionalInchParser", Row.Increment);
    const TFeetAndFractionalInchParser Parser(&Unit.Unit);
    EXPECT_EQ(Parser.IsRoundToHighUnitInCoupleUnit(), Row.High)
        << std::string(Row.Increment.begin(), Row.Increment.end());
    EXPECT_EQ(Parser.IsRoundToLowUnitInCoupleUnit(), Row.Low)
        << std::string(Row.Increment.begin(), Row.Increment.end());
  }
}

TEST(IncrementParts, AreSplitAtTheFirstBar) {
  double Numerator = 0, Denominator = 0;
  EXPECT_TRUE(TFractionalLengthParser::GetFenZiFenMu(u"1/16", Numerator, Denominator));
  EXPECT_EQ(Numerator, 1);
  EXPECT_EQ(Denominator, 16);
  EXPECT_FALSE(TFractionalLengthParser::GetFenZiFenMu(u"6", Numerator, Denominator));
  EXPECT_EQ(Numerator, 6);
  EXPECT_EQ(Denominator, 1);
  EXPECT_THROW(TFractionalLengthParser::GetFenZiFenMu(u"1/2/3", Numerator, Denominator), EConvertError);
  EXPECT_EQ(TFractionalLengthParser::GCD(16, 12), 4);
  EXPECT_EQ(TFractionalLengthParser::GCD(7, 0), 7);
  EXPECT_EQ(TFractionalLengthParser::GCD(0, 0), 0);
}

TEST(ShownLengths, AreReadBackWithinHalfAnIncrement) {
  for (auto Class : {u"TFeetAndFractionalInchParser", u"TFractionalInchParser"})
    for (auto [Increment, Step] :
         {std::pair{u"1/16", 1.0 / 16}, {u"1/256", 1.0 / 256}, {u"1", 1.0}, {u"6", 6.0}, {u"12", 12.0}}) {
      TOneUnit Unit(Class, Increment);
      for (int I = -2000; I < 2000; ++I) {
        const double Value = I * 7.77;
        const std::u16string Text = Unit.Show(Value);
        ASSERT_TRUE(Unit.Valid(Text));
        ASSERT_NEAR(Unit.Read(Text), Value, Step * 25.4 / 2 + 1e-9);
        // A negative value that rounds to zero keeps its sign, which no number read from the text has.
        if (Unit.Read(Text) != 0) {
          ASSERT_EQ(Unit.Show(Unit.Read(Text)), Text) << "shown twice is stable";
        }
      }
    }
}

} // namespace
} // namespace unitlib
