/// The base parser, the registry and the scales of every class.
#include "tests/support/OneUnit.h"
#include "tests/support/Settings.h"
#include "unitlib/convert/ZELUnitLengthConvertor.h"
#include "unitlib/rtl/Errors.h"
#include "unitlib/rtl/Numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <typeinfo>

namespace unitlib {
namespace {

using test::TOneUnit;

// ---------------------------------------------------------------- registry

TEST(ParserRegistry, IgnoresLetterCaseAndAnswersNullForOthers) {
  TUnit Unit;
  ASSERT_NE(GetUnitParser(u"tdecimalfeetparser", &Unit), nullptr);
  EXPECT_EQ(GetUnitParser(u"tdecimalfeetparser", &Unit)->GetUnit(), &Unit);
  EXPECT_EQ(GetUnitParser(u"TFoo", &Unit), nullptr);
  EXPECT_EQ(GetUnitParser(u"", &Unit), nullptr);
  EXPECT_EQ(GetUnitParser(u"TCommonUnitParser", &Unit), nullptr);
  EXPECT_EQ(GetUnitParser(u"TFractionalLengthParser", &Unit), nullptr);
  EXPECT_THROW(GetUnitParser(u"TMetreParser", nullptr), EListError);
}

TEST(ParserRegistry, KeepsTheFirstOfTwo) {
  struct TMine : TCommonUnitParser {
    using TCommonUnitParser::TCommonUnitParser;
  };
  struct TOther : TCommonUnitParser {
    using TCommonUnitParser::TCommonUnitParser;
  };
  RegisterUnitParser(u"TTestParserOfMine", CreateUnitParser<TMine>);
  RegisterUnitParser(u"ttestparserofmine", CreateUnitParser<TOther>);
  TUnit Unit;
  const auto Parser = GetUnitParser(u"TTestParserOfMine", &Unit);
  ASSERT_NE(Parser, nullptr);
  EXPECT_EQ(typeid(*Parser), typeid(TMine));
}

// What a class of the host inherits where it says nothing of its own.
TEST(HostClasses, CountInBaseUnitsUnlessTheySayOtherwise) {
  struct TPlain : TCommonUnitParser {
    using TCommonUnitParser::TCommonUnitParser;
  };
  TUnit Unit;
  const auto Parser = CreateUnitParser<TPlain>(&Unit);
  EXPECT_EQ(Parser->GetScale(-1), 1);
  EXPECT_EQ(Parser->GetScale(3), 1000);
  EXPECT_EQ(Parser->AsDouble(u"1,234.5", -1), 1234.5);
  EXPECT_EQ(Parser->AsDouble(u"2", 3), 2000);
}

TEST(HostClasses, ReadFractionsOfAnInch) {
  struct TInches : TFractionalLengthParser {
    using TFractionalLengthParser::TFractionalLengthParser;
  };
  TUnit Unit;
  const auto Parser = CreateUnitParser<TInches>(&Unit);
  EXPECT_EQ(Parser->AsDouble(u"5'6 1/2\"", -1), 1689.1); // 66.5 * 25.4
  EXPECT_EQ(Parser->AsDouble(u"3\"", 3), 0.0762);        // in metres
}

// ---------------------------------------------------------------- scales

struct TScaleRow {
  const char* Name;
  double Factor; // display unit in base units
};

class Scale : public testing::TestWithParam<TScaleRow> {};

TEST_P(Scale, IsTheFactorOverTheStoreUnit) {
  const std::string Name = GetParam().Name;
  TOneUnit Unit(std::u16string(Name.begin(), Name.end()));
  const auto Parser = Unit.Parser();
  ASSERT_NE(Parser, nullptr);
  for (int Index : {-1, 0, 1, 2, 6, 7, 8, 100, -2147483647 - 1})
    EXPECT_EQ(Parser->GetScale(Index), GetParam().Factor) << Index;
  EXPECT_DOUBLE_EQ(Parser->GetScale(3), GetParam().Factor / 1e3);
  EXPECT_DOUBLE_EQ(Parser->GetScale(4), GetParam().Factor / 1e6);
  EXPECT_DOUBLE_EQ(Parser->GetScale(5), GetParam().Factor / 1e9);
}

INSTANTIATE_TEST_SUITE_P(
    Classes, Scale,
    testing::Values(
        TScaleRow{"TMillimetreParser", 1}, TScaleRow{"TCentimeterParser", 10},
        TScaleRow{"TMetreParser", 1000}, TScaleRow{"TDecimalInchParser", 25.4},
        TScaleRow{"TDecimalFeetParser", 304.8}, TScaleRow{"TFractionalInchParser", 25.4},
        TScaleRow{"TFeetAndFractionalInchParser", 25.4}, TScaleRow{"TSquareMillimeterParser", 1},
        TScaleRow{"TSquareCentimetreParser", 100}, TScaleRow{"TSquareMeterParser", 1000000},
        TScaleRow{"TSquareInchParser", 645.16}, TScaleRow{"TSquareFootParser", 92903.04},
        TScaleRow{"TCubicMillimetreParser", 1}, TScaleRow{"TCubicCentimeterParser", 1000},
        TScaleRow{"TCubicMeterParser", 1000000000}, TScaleRow{"TCubicInchParser", 16387.064},
        TScaleRow{"TCubicFootParser", 28316846.592}, TScaleRow{"TCubicYardParser", 764554857.984},
        TScaleRow{"TKilogramsParser", 1}, TScaleRow{"TTonParser", 1000}, TScaleRow{"TLongTonParser", 1016},
        TScaleRow{"TShortTonParser", 907}, TScaleRow{"TBangParser", 0.45359237},
        TScaleRow{"TKiogramsPerCubicMeterParser", 1}, TScaleRow{"TPoundPerCubicFootParser", 16.01846337396},
        TScaleRow{"TPoundPerCubicYardParser", 0.593276421257783}, TScaleRow{"TCubicMetersPerMeterParser", 1},
        TScaleRow{"TCubicFeetPerFootParser", 0.09290304}, TScaleRow{"TCubicYardsPerFootParser", 2.50838208},
        TScaleRow{"TCubicMetersPerSquareMetersParser", 1}, TScaleRow{"TCubicFeetPerSquareFeetParser", 0.3048},
        TScaleRow{"TCubicYardsPerSquareFeetParser", 8.2296}, TScaleRow{"TKilogramsPerMeterParser", 1},
        TScaleRow{"TPoundPerFootParser", 1.4881639461}),
    [](const auto& Info) { return Info.param.Name; });

TEST(Scales, AreRoundedOnce) {
  EXPECT_EQ(TOneUnit(u"TDecimalInchParser").Parser()->GetScale(3), 0.0254);
  EXPECT_EQ(TOneUnit(u"TDecimalFeetParser").Parser()->GetScale(3), 0.3048);
  EXPECT_EQ(TOneUnit(u"TSquareFootParser").Parser()->GetScale(4), 0.09290304);
  EXPECT_EQ(TOneUnit(u"TCubicYardParser").Parser()->GetScale(5), 0.764554857984);
  EXPECT_EQ(TOneUnit(u"TPoundPerCubicYardParser").Parser()->GetScale(5), 0.593276421257783e-9);
}

TEST(Scales, ReadAndShowInStoreUnits) {
  TOneUnit Metre(u"TMetreParser");
  EXPECT_EQ(Metre.Read(u"2.5", 0), 2500);
  EXPECT_EQ(Metre.Read(u"2.5", 3), 2.5);
  EXPECT_EQ(Metre.Show(2500, 0), u"2.500");
  EXPECT_EQ(TOneUnit(u"TShortTonParser").Show(907), u"1.000");
  EXPECT_EQ(TOneUnit(u"TSquareFootParser").Read(u"1", 4), 0.09290304);
}

// ---------------------------------------------------------------- number text

struct TShowRow {
  const char* Name;
  double Value; // mm, shown in mm
  std::u16string_view Increment;
  bool CanEdit;
  std::u16string_view Padded;     // trailing zeros shown
  std::u16string_view Suppressed; // trailing zeros suppressed
};

class DecimalText : public testing::TestWithParam<TShowRow> {};

TEST_P(DecimalText, IsRoundedAndPadded) {
  TOneUnit Unit(u"TMillimetreParser", GetParam().Increment, GetParam().CanEdit);
  EXPECT_EQ(Unit.Show(GetParam().Value), GetParam().Padded);
  Unit.Unit.SuppressTrail0.Checked = true;
  EXPECT_EQ(Unit.Show(GetParam().Value), GetParam().Suppressed);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, DecimalText,
    testing::Values(TShowRow{"PadsOneDigit", 2.5, u"0.01", false, u"2.50", u"2.5"},
                    TShowRow{"PadsWholeNumber", 3, u"0.01", false, u"3.00", u"3"},
                    TShowRow{"IncrementOne", 3, u"1", false, u"3", u"3"},
                    TShowRow{"EmptyIncrement", 2.5, u"", false, u"3", u"3"},
                    TShowRow{"EmptyIncrementEditable", 2.5, u"", true, u"3", u"3"},
                    TShowRow{"HalfUp", 2.26, u"0.5", false, u"2.5", u"2.5"},
                    TShowRow{"HalfDown", 2.24, u"0.5", false, u"2.0", u"2"},
                    TShowRow{"Negative", -2.5, u"0.01", false, u"-2.50", u"-2.5"},
                    TShowRow{"NegativeToZero", -0.001, u"0.01", false, u"-0.00", u"-0"},
                    TShowRow{"Zero", 0, u"0.01", false, u"0.00", u"0"},
                    TShowRow{"ZeroIncrement", 2.345678, u"0", true, u"2.345678", u"2.345678"},
                    TShowRow{"ZeroIncrementWithDecimals", 2.5, u"0.000", true, u"2.500", u"2.5"},
                    TShowRow{"FixedIncrementIsShortened", 2.5, u"0.500", false, u"2.5", u"2.5"},
                    TShowRow{"EditedIncrementAsTyped", 2.5, u"0.500", true, u"2.500", u"2.5"},
                    TShowRow{"EditedIncrementWithBlank", 2.5, u"0.5 ", true, u"2.50", u"2.5"},
                    TShowRow{"Thousands", 1234.5, u"1000", false, u"1000", u"1000"},
                    TShowRow{"ThousandsToZero", 499, u"1000", false, u"0", u"0"},
                    TShowRow{"CarriesAcrossThePoint", 9.9996, u"0.001", false, u"10.000", u"10"},
                    TShowRow{"ValueBeyondSixtyFourBits", 1e20, u"0.001", false, u"100000000000000000000.000",
                             u"100000000000000000000"},
                    TShowRow{"TinyValue", 1e-9, u"0.001", false, u"0.000", u"0"},
                    TShowRow{"NegativeIncrement", 2.26, u"-0.5", false, u"2.5", u"2.5"}),
    [](const auto& Info) { return Info.param.Name; });

TEST(DecimalTextRules, SignsFollowTheValue) {
  TOneUnit Unit(u"TMillimetreParser", u"0.1");
  Unit.Unit.ShowPlusForPosValue.Checked = true;
  EXPECT_EQ(Unit.Show(2), u"+2.0");
  EXPECT_EQ(Unit.Show(0), u"0.0");
  EXPECT_EQ(Unit.Show(-0.0), u"0.0");
  EXPECT_EQ(Unit.Show(-2), u"-2.0");
  EXPECT_EQ(Unit.Parser()->AsString(2, -1, false, false, false, true), u"2.0");
  EXPECT_EQ(Unit.Parser()->AsString(-2, -1, false, false, false, true), u"-2.0");
}

TEST(DecimalTextRules, NoRoundShowsFifteenDigitsAndStillPads) {
  TOneUnit Unit(u"TMillimetreParser", u"0.001");
  EXPECT_EQ(Unit.Parser()->AsString(1.0 / 3, -1, false, false, true, false), u"0.333333333333333");
  EXPECT_EQ(Unit.Parser()->AsString(2.5, -1, false, false, true, false), u"2.500");
}

TEST(DecimalTextRules, AUnitWithoutCurrentRoundShowsWholeNumbers) {
  TOneUnit Unit(u"TMillimetreParser");
  Unit.Unit.CurRoundIndex = 5;
  EXPECT_EQ(Unit.Show(2.5), u"3");
}

TEST(DecimalTextRules, ABadIncrementRaises) {
  for (std::u16string_view Bad : {u"1/16", u"x", u" ", u"1e400"}) {
    TOneUnit Unit(u"TMillimetreParser", Bad);
    EXPECT_THROW(Unit.Show(1), EConvertError);
    EXPECT_THROW(Unit.Parser()->AsString(1, -1, false, false, true, false), EConvertError)
        << "also unrounded";
  }
}

TEST(DecimalTextRules, WhatIsNotFiniteRaises) {
  TOneUnit Unit(u"TMillimetreParser");
  for (double Value :
       {std::nan(""), std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()})
    EXPECT_THROW(Unit.Show(Value), ERangeError);
  EXPECT_THROW(TOneUnit(u"TPoundPerCubicYardParser").Show(1e308, 5), ERangeError) << "the quotient overflows";
  EXPECT_THROW(TOneUnit(u"TMetreParser").Read(u"1e308"), ERangeError) << "the product overflows";
}

TEST(DecimalTextRules, SymbolStandsBehindABlank) {
  TOneUnit Unit(u"TMetreParser", u"0.01");
  Unit.Symbol(u"m");
  EXPECT_EQ(Unit.Show(2500), u"2.50 m");
  EXPECT_EQ(Unit.Parser()->AsString(2500, -1, true, false, false, false), u"2.50");
  Unit.NoSymbolChosen();
  EXPECT_EQ(Unit.Show(2500), u"2.50");
  Unit.Symbol(u"none"); // only "None" itself stands for no symbol here
  EXPECT_EQ(Unit.Show(2500), u"2.50 none");
  Unit.Unit.CurUnitSymbolIndex = -1;
  EXPECT_EQ(Unit.Show(2500), u"2.50");
}

// ---------------------------------------------------------------- reading

TEST(DecimalReading, CutsOneSymbolAndEveryComma) {
  TOneUnit Unit(u"TMetreParser");
  Unit.Symbol(u"m");
  EXPECT_EQ(Unit.Parser()->RemoveSymbol(u"12 m"), u"12 ");
  EXPECT_EQ(Unit.Parser()->RemoveSymbol(u"12 M"), u"12 ");
  EXPECT_EQ(Unit.Parser()->RemoveSymbol(u"12 m m"), u"12 m ");
  EXPECT_EQ(Unit.Parser()->RemoveSymbol(u"m"), u"");
  EXPECT_EQ(Unit.Parser()->RemoveSymbol(u"12 mm"), u"12 m");
  EXPECT_EQ(Unit.Read(u"1,234.5 m"), 1234500);
  EXPECT_TRUE(Unit.Valid(u"1,234.5 m"));
  EXPECT_FALSE(Unit.Valid(u"12 mm"));
  EXPECT_FALSE(Unit.Valid(u"m"));
  EXPECT_THROW(Unit.Read(u"12 mm"), EConvertError);
  EXPECT_EQ(Unit.Read(u"1,2,,3"), 123000) << "commas are removed wherever they stand";
}

TEST(DecimalReading, SkipsTheFirstAndEmptySymbolsAndTakesListOrder) {
  TOneUnit Unit(u"TMetreParser");
  Unit.Symbol(u"").Symbol(u"m").Symbol(u"xm");
  EXPECT_EQ(Unit.Parser()->RemoveSymbol(u"12xm"), u"12x") << "the first description that fits is cut";
  EXPECT_EQ(Unit.Parser()->RemoveSymbol(u"12 None"), u"12 None");
}

struct TValidRow {
  const char* Name;
  std::u16string_view Text;
  bool Valid;
};

class DecimalValidity : public testing::TestWithParam<TValidRow> {};

TEST_P(DecimalValidity, HasExclusiveBounds) {
  EXPECT_EQ(TOneUnit(u"TMetreParser").Valid(GetParam().Text), GetParam().Valid);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, DecimalValidity,
    testing::Values(TValidRow{"UpperBound", u"1e15", false},
                    TValidRow{"BelowUpperBound", u"999999999999999", true},
                    TValidRow{"NegativeUpperBound", u"-1e15", false}, TValidRow{"Zero", u"0", true},
                    TValidRow{"MinusZero", u"-0.0", true}, TValidRow{"BelowLowerBound", u"1e-16", false},
                    TValidRow{"LowerBound", u"1e-15", false}, TValidRow{"AboveLowerBound", u"1.1e-15", true},
                    TValidRow{"BelowTheSmallestDouble", u"1e-400", false},
                    TValidRow{"Commas", u"1,234.5", true}, TValidRow{"CommaAlone", u",", false},
                    TValidRow{"Empty", u"", false}, TValidRow{"Blanks", u" 5 ", true},
                    TValidRow{"Letters", u"abc", false}, TValidRow{"FeetInMetres", u"5'", false}),
    [](const auto& Info) { return Info.param.Name; });

TEST(DecimalReading, ShowsAndReadsBack) {
  TOneUnit Unit(u"TSquareFootParser", u"0.001");
  Unit.Symbol(u"SF");
  EXPECT_EQ(Unit.Show(1234567890.12345), u"13288.778 SF");
  EXPECT_NEAR(Unit.Read(u"13288.778 SF"), 1234567890.12345, 92903.04 * 0.0005);
}

} // namespace
} // namespace unitlib
