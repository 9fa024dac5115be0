/// Values of trees as they were read, and the three text forms.
#include "ExpressionTests.h"

#include <gtest/gtest.h>

namespace unitlib::test {
namespace {

// --- values ---

struct TValueRow {
  const char* Name;
  std::vector<TLengthUnit> Units;
  std::u16string Text;
  double Value;
  std::u16string Message = {}; // when refused
};

class Value : public TExpressionTest, public testing::WithParamInterface<TValueRow> {};

TEST_P(Value, OfTheTree) {
  for (const TLengthUnit Unit : GetParam().Units) {
    Use(Unit);
    TParser Parser(GetParam().Text);
    const auto Root = Parser.Parse();
    ASSERT_FALSE(Parser.FHasError) << ToUtf8(Parser.FErrMsg);
    EXPECT_DOUBLE_EQ(Parser.GetDoubleValue(*Root), GetParam().Value) << "unit " << Unit;
    EXPECT_EQ(Parser.FErrMsg, GetParam().Message);
    EXPECT_EQ(Parser.FHasError, !GetParam().Message.empty());
  }
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Value,
    testing::Values(
        TValueRow{"Precedence", Every, u"1+2*3", 7}, TValueRow{"Chain", Every, u"8-2-1", 5},
        TValueRow{"Block", Every, u"(1+2)*3", 9}, TValueRow{"Quotient", Every, u"7/2", 3.5},
        TValueRow{"NegativeOperand", Every, u"2*-3", -6}, TValueRow{"TwoSigns", Every, u"--5+1", 6},
        TValueRow{"SignOfABlockIsNotLookedAt", Every, u"-(1+2)", 3},
        TValueRow{"VariableCountsZero", Every, u"A+5", 5},
        TValueRow{"DivisionByZero", Every, u"6/0", 0, u"can not div by zero!"},
        TValueRow{"ZeroByZero", Every, u"0/0", 0, u"can not div by zero!"},
        TValueRow{"DivisionByZeroBlock", Every, u"6/(2-2)+1", 1, u"can not div by zero!"},
        // 1 foot is 0.3048 m, 1 inch 0.0254 m
        TValueRow{"Feet", Imperial, u"5'", 1.524}, TValueRow{"FeetInches", Imperial, u"5'6\"", 1.6764},
        TValueRow{"FeetInchesFraction", Imperial, u"5' 6 1/2\"", 1.6891},
        TValueRow{"NegativeFeet", Imperial, u"-5'", -1.524},
        TValueRow{"ImperialSum", Imperial, u"5'+6\"", 1.6764},
        TValueRow{"ImperialDifference", Imperial, u"5'-6\"", 1.3716},
        TValueRow{"ImperialTimesPlain", Imperial, u"5'*2", 3.048},
        TValueRow{"PlainTimesImperial", Imperial, u"2*5'", 3.048},
        TValueRow{"ImperialByPlain", Imperial, u"5'/2", 0.762},
        TValueRow{"UnfoldedSumIsNotImperial", Imperial, u"(5'+6\")+2", 3.6764},
        TValueRow{"UnfoldedSumTimesImperial", Imperial, u"(5'+5')*1'", 0.9290304},
        TValueRow{"DecimalFeet", {DecimalFeet}, u"2.5'", 0.762},
        TValueRow{"ImperialPlusPlain", Imperial, u"5'+3", 0, u"imperial number can not add with const!"},
        TValueRow{"PlainPlusImperial", Imperial, u"3+5'", 0, u"imperial number can not add with const!"},
        TValueRow{"ImperialMinusPlain", Imperial, u"5'-3", 0, u"imperial number can not sub with const!"},
        TValueRow{"PlainMinusImperial", Imperial, u"3-5'", 0, u"imperial number can not sub with const!"},
        TValueRow{"ImperialTimesImperial", Imperial, u"5'*2'", 0, u"imperial can not mul by imperial!"},
        TValueRow{"ImperialByZero", Imperial, u"5'/0", 0, u"can not div by zero!"},
        TValueRow{"ByZeroFeet", Imperial, u"5'/0'", 0, u"can not div by zero!"},
        TValueRow{"PlainByImperial", Imperial, u"2/5'", 0, u"not imperial can not div by imperial!"},
        TValueRow{"ImperialByImperial", Imperial, u"5'/2'", 0, u"imperial can not div by imperial!"},
        TValueRow{"FeetAreANameInMetres", Metric, u"5'+3", 3}),
    [](const auto& Info) { return Info.param.Name; });

// --- texts ---

struct TTextRow {
  const char* Name;
  std::vector<TLengthUnit> Units;
  std::u16string Text;
  std::u16string Written;
};

class Text : public TExpressionTest, public testing::WithParamInterface<TTextRow> {};

TEST_P(Text, IsTheSameInAllFormsWhereNothingIsMarked) {
  for (const TLengthUnit Unit : GetParam().Units) {
    Use(Unit);
    TParser Parser(GetParam().Text);
    const auto Root = Parser.Parse();
    ASSERT_FALSE(Parser.FHasError) << ToUtf8(Parser.FErrMsg);
    EXPECT_EQ(Parser.GetStoreValue(*Root), GetParam().Written);
    EXPECT_EQ(Parser.GetEditValue(*Root), GetParam().Written);
    EXPECT_EQ(Parser.GetDisplayValue(*Root), GetParam().Written);
    EXPECT_FALSE(Parser.FHasError);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Text,
    testing::Values(
        TTextRow{"Block", Every, u"(1+2)*3", u"(1+2)*3"}, TTextRow{"NegativeOperand", Every, u"-3", u"(-3)"},
        TTextRow{"NegativeRight", Every, u"2*-3", u"2*(-3)"},
        TTextRow{"NegativeLeft", Every, u"-3 + 1", u"(-3)+1"},
        TTextRow{"NestedBlocks", Every, u"2*(3-( 4+5 ))", u"2*(3-(4+5))"},
        TTextRow{"OperandBlockHasNoBrackets", Every, u"((1))+2", u"1+2"},
        TTextRow{"RootBlock", Every, u"(1+2)", u"(1+2)"},
        TTextRow{"Names", Every, u"Level 1 --B", u"Level 1--B"},
        TTextRow{"PlainNumbersAsTyped", Every, u"1.50+2e3", u"1.50+2e3"},
        TTextRow{"FeetInMetres", Imperial, u"5'+6\"", u"1.524+0.1524"},
        TTextRow{"NegativeFeet", Imperial, u"1'+-5'", u"0.3048+(-1.524)"},
        // 0.0001" is 0.00000254 m: written out, for "2.54E-6" would be read as "2.54E" less 6
        TTextRow{"TinyLengthBesideAnOperator", {DecimalInches}, u"0.0001\"+12\"", u"0.00000254+0.3048"}),
    [](const auto& Info) { return Info.param.Name; });

class MarkedText : public TExpressionTest {};

TEST_F(MarkedText, ConvertsTheLengthsOfASum) {
  Use(Millimeters);
  TParser Parser(u"A+500");
  const auto Root = Parser.Parse();
  Parser.Mark(*Root);
  EXPECT_EQ(Parser.GetStoreValue(*Root), u"A+0.5");
  EXPECT_EQ(Parser.GetEditValue(*Root), u"A+500000");
  EXPECT_EQ(Parser.GetDisplayValue(*Root), u"A+500000");
}

TEST_F(MarkedText, OfANegativeOperandHasBracketsInAllForms) {
  Use(Millimeters);
  TParser Parser(u"-500");
  const auto Root = Parser.Parse();
  Parser.Mark(*Root);
  EXPECT_EQ(Parser.GetStoreValue(*Root), u"(-0.5)");
  EXPECT_EQ(Parser.GetEditValue(*Root), u"(-500000)");
  EXPECT_EQ(Parser.GetDisplayValue(*Root), u"(-500000)");
}

TEST_F(MarkedText, KeepsAnImperialLengthInStoreFormOnly) {
  Use(FeetAndInches);
  TParser Parser(u"A-5'6\"");
  const auto Root = Parser.Parse();
  Parser.Mark(*Root);
  EXPECT_EQ(Parser.GetStoreValue(*Root), u"A-1.6764");
  EXPECT_EQ(Parser.GetEditValue(*Root), u"A-5' 6\"");
  EXPECT_EQ(Parser.GetDisplayValue(*Root), u"A-5' 6\"");
}

TEST_F(MarkedText, SymbolsAndPlusShowInDisplayFormOnly) {
  TUnit& Unit = Use(Centimeters);
  Unit.CurUnitSymbolIndex = 1; // cm
  Unit.ShowPlusForPosValue.Checked = true;
  TParser Parser(u"0.5-A");
  const auto Root = Parser.Parse();
  Parser.Mark(*Root);
  EXPECT_EQ(Parser.GetEditValue(*Root), u"50.0-A");
  EXPECT_EQ(Parser.GetDisplayValue(*Root), u"+50.0 cm-A");
  Unit.CurUnitSymbolIndex = 0;
  Unit.ShowPlusForPosValue.Checked = false;
}

TEST_F(MarkedText, InchMarkIsAppendedInEditForm) {
  Use(FractionalInches);
  TParser Parser(u"A+0.0381"); // 1 1/2"
  const auto Root = Parser.Parse();
  Parser.Mark(*Root);
  EXPECT_EQ(Parser.GetEditValue(*Root), u"A+1 1/2\"");
}

TEST_F(MarkedText, RefusedLengthSetsTheFlagWithoutAMessage) {
  Use(FeetAndInches); // a decimal number is no feet and inches
  TParser Parser(u"A+2.5");
  const auto Root = Parser.Parse();
  Parser.Mark(*Root);
  EXPECT_EQ(Parser.GetEditValue(*Root), u"A+8' 2 7/16\""); // 2.5 m is 98.425", to 1/32" 98 14/32"; no check
  EXPECT_FALSE(Parser.FHasError);
  EXPECT_EQ(Parser.GetStoreValue(*Root), u"");
  EXPECT_TRUE(Parser.FHasError);
  EXPECT_TRUE(Parser.FErrMsg.empty());
  EXPECT_EQ(Parser.GetEditValue(*Root), u""); // nothing is written once an error is set
}

TEST_F(MarkedText, OfAnOperatorWithoutAnOperandIsEmpty) {
  TParser Parser(u"1+2");
  const auto Root = Parser.Parse();
  Root->FRight.reset();
  EXPECT_EQ(Parser.GetStoreValue(*Root), u"");
  EXPECT_FALSE(Parser.FHasError);
}

} // namespace
} // namespace unitlib::test
