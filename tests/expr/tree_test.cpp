/// Texts into trees: tokens, signs, brackets, precedence, and the message of every text that is refused.
#include "ExpressionTests.h"

#include <gtest/gtest.h>

namespace unitlib::test {
namespace {

struct TRow {
  const char* Name;
  std::vector<TLengthUnit> Units;
  std::u16string Text;
  std::string Tree;
};

class Tree : public TExpressionTest, public testing::WithParamInterface<TRow> {};

TEST_P(Tree, IsRead) {
  for (const TLengthUnit Unit : GetParam().Units) {
    Use(Unit);
    EXPECT_EQ(Parsed(GetParam().Text), GetParam().Tree) << "unit " << Unit;
  }
}

std::string NameOf(const testing::TestParamInfo<TRow>& Info) {
  return Info.param.Name;
}

INSTANTIATE_TEST_SUITE_P(
    Precedence, Tree,
    testing::Values(TRow{"PlusTimes", Every, u"1+2*3", "(+ 1 (* 2 3))"},
                    TRow{"TimesPlus", Every, u"1*2+3", "(+ (* 1 2) 3)"},
                    TRow{"MinusMinus", Every, u"8-2-1", "(- (- 8 2) 1)"},
                    TRow{"BlockTimes", Every, u"(1+2)*3", "(* [+ 1 2] 3)"},
                    TRow{"PlusTimesTimes", Every, u"1+2*3*4", "(+ 1 (* (* 2 3) 4))"},
                    TRow{"TwoProducts", Every, u"1-2*3+4*5", "(+ (- 1 (* 2 3)) (* 4 5))"},
                    TRow{"DivideTimes", Every, u"8/4*2", "(* (/ 8 4) 2)"},
                    TRow{"PlusBlockTimes", Every, u"2+(3+4)*5", "(+ 2 (* [+ 3 4] 5))"},
                    TRow{"BlockRootIsNotSplit", Every, u"(1-2)/4", "(/ [- 1 2] 4)"},
                    TRow{"NegativeBlockRootIsNotSplit", Every, u"-(1-2)*4", "(* -[- 1 2] 4)"},
                    TRow{"NestedBlocks", Every, u"2*(3-(4+5))", "(* 2 [- 3 [+ 4 5]])"},
                    TRow{"Names", Every, u"L.1-L2", "(- L.1:v L2:v)"}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Signs, Tree,
    testing::Values(
        TRow{"Minus", Every, u"-5+3", "(+ -5 3)"}, TRow{"TwoMinus", Every, u"--5", "5"},
        TRow{"ThreeMinus", Every, u"---5", "-5"}, TRow{"Plus", Every, u"+5", "5"},
        TRow{"PlusMinus", Every, u"+-5", "-5"}, TRow{"MinusPlus", Every, u"-+5", "-5"},
        TRow{"MinusPlusMinus", Every, u"-+-5", "5"}, TRow{"AfterTimes", Every, u"2*-3", "(* 2 -3)"},
        TRow{"AfterMinus", Every, u"2--3", "(- 2 -3)"}, TRow{"TwoAfterMinus", Every, u"2---3", "(- 2 3)"},
        TRow{"PlusAfterDivide", Every, u"2/+3", "(/ 2 3)"}, TRow{"BeforeName", Every, u"-A+5", "(+ -A:v 5)"},
        TRow{"NegativeBlock", Every, u"-(1+2)", "-[+ 1 2]"},
        TRow{"PositiveBlock", Every, u"+(1+2)", "[+ 1 2]"},
        TRow{"TwoSignsBlock", Every, u"--(1+2)", "[+ 1 2]"},
        TRow{"NegativeBlockAfterTimes", Every, u"2*-(3+4)", "(* 2 -[+ 3 4])"},
        TRow{"SubtractedNegativeBlock", Every, u"2--(3)", "(- 2 -[3])"},
        TRow{"NegativeNumberInBlock", Every, u"(-5)", "[-5]"},
        TRow{"NegativeOperandBlock", Every, u"-(5)", "-[5]"},
        TRow{"NegationOfNegation", Every, u"-(-(5))", "[5]"},
        TRow{"NegationOfNegatedBlock", Every, u"-(-(1+2))", "[+ 1 2]"},
        TRow{"NegationInBlock", Every, u"(-(5))", "-[5]"},
        TRow{"SignOfNestedTextStart", Every, u"(--5+(+3))", "[+ 5 [3]]"},
        TRow{"SignAfterBlanksInBlock", Every, u"( -5)", "[-5]"},
        TRow{"MinusBlankNumberIsAName", Every, u"- 5", "- 5:v"},
        TRow{"MinusBlankNumberInBlockIsAName", Every, u"(- 5)", "[- 5:v]"}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Texts, Tree,
    testing::Values(
        TRow{"Empty", Every, u"", "none"}, TRow{"Blanks", Every, u"  \t ", "none"},
        TRow{"BlanksAround", Every, u"  1 + 2  ", "(+ 1 2)"}, TRow{"TwoNumbers", Every, u"1 2", "1 2:v"},
        TRow{"NameWithBlank", Every, u"Level 1+5", "(+ Level 1:v 5)"},
        TRow{"BlanksInBrackets", Every, u"( 1+2 )*( 3 )", "(* [+ 1 2] [3])"},
        TRow{"BlankBehindInnerBracket", Every, u"((1) )", "[1]"},
        TRow{"ClosingBracketBelongsToAName", Every, u"1)+2", "(+ 1):v 2)"},
        TRow{"OperatorInName", Every, u"A^2", "A^2:v"}, TRow{"Comma", Every, u"1,000+1", "(+ 1,000:v 1)"},
        TRow{"DecimalPoint", Every, u".5+5.", "(+ .5 5.)"}, TRow{"Exponent", Every, u"1e3+1", "(+ 1e3 1)"},
        TRow{"NegativeExponentIsSplit", Every, u"1e-5", "(- 1e:v 5)"},
        TRow{"BeyondDouble", Every, u"1e400", "1e400:v"},
        TRow{"LoneSurrogate", Every, std::u16string(u"A\xD800") + u"+1", "(+ A\xEF\xBF\xBD:v 1)"},
        TRow{"WideDigit", Every, u"\uFF15+1", "(+ \xEF\xBC\x95:v 1)"},
        TRow{"Nul", Every, std::u16string(u"A\0B+1", 5), std::string("(+ A\0B:v 1)", 11)},
        TRow{"ChineseName", Every, u"\u4E00+1", "(+ \xE4\xB8\x80:v 1)"}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Imperial, Tree,
    testing::Values(TRow{"FeetInchesFraction", test::Imperial, u"5' 6 1/2\"", "5' 6 1/2\":i"},
                    TRow{"WithoutBlanks", test::Imperial, u"5'6 1/2\"", "5'6 1/2\":i"},
                    TRow{"Division", test::Imperial, u"6/2", "(/ 6 2)"},
                    TRow{"FractionPlusFeet", test::Imperial, u"1/2\"+5'", "(+ 1/2\":i 5':i)"},
                    TRow{"FractionTwice", test::Imperial, u"1/2\"-3/4\"", "(- 1/2\":i 3/4\":i)"},
                    TRow{"FractionDivided", test::Imperial, u"1/2\"/2", "(/ 1/2\":i 2)"},
                    TRow{"NoFractionWithoutMark", test::Imperial, u"5' 6 1/2", "(/ 5' 6 1:v 2)"},
                    TRow{"NoFractionAtTheEnd", test::Imperial, u"1/22", "(/ 1 22)"},
                    TRow{"NoFractionWithoutDigits", test::Imperial, u"3/ 2\"", "(/ 3 2\":i)"},
                    TRow{"NoFractionBehindAName", test::Imperial, u"A/2\"", "(/ A:v 2\":i)"},
                    TRow{"LastBarIsTheFraction", test::Imperial, u"3/4/5\"", "(/ 3 4/5\":i)"},
                    TRow{"FractionBarBehindABlank", test::Imperial, u"5* /2\"x", "(* 5 /2\"x:v)"},
                    TRow{"NegativeFeet", test::Imperial, u"-5'", "-5':i"},
                    TRow{"NegativeFractionIsSplit", test::Imperial, u"-1/2\"", "(/ -1 2\":i)"},
                    TRow{"NegativeFractionInBlockIsSplit", test::Imperial, u"(-1/2\")", "[/ -1 2\":i]"},
                    TRow{"FractionInBlock", test::Imperial, u"-(1/2\")", "-[1/2\":i]"},
                    TRow{"DashIsMinus", test::Imperial, u"5'6-1/2\"", "(- 5'6:v 1/2\":i)"},
                    TRow{"DashFeet", test::Imperial, u"5-6", "(- 5 6)"},
                    TRow{"FeetInchesWithoutMarkIsAName", test::Imperial, u"5'6", "5'6:v"},
                    TRow{"DecimalFeetNumber", {DecimalFeet, DecimalInches}, u"5'", "5':i"}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(Metric, Tree,
                         testing::Values(TRow{"FractionIsSplit", test::Metric, u"1/2\"", "(/ 1 2\":v)"},
                                         TRow{"FeetAreAName", test::Metric, u"5'", "5':v"},
                                         TRow{"NameWithMark", test::Metric, u"A'+1", "(+ A':v 1)"},
                                         TRow{"InchesAreAName", test::Metric, u"5\"+5", "(+ 5\":v 5)"}),
                         NameOf);

INSTANTIATE_TEST_SUITE_P(
    Refused, Tree,
    testing::Values(TRow{"Function", Every, u"f(3)", "! unsupport function!"},
                    TRow{"FunctionInTheMiddle", Every, u"1+f(3)", "! unsupport function!"},
                    TRow{"NumberBeforeBracket", Every, u"2(3)", "! unsupport function!"},
                    TRow{"BlankBeforeBracket", Every, u"2 * (3)", "! unsupport function!"},
                    TRow{"NegatedFunction", Every, u"-f(3)", "! unsupport function!"},
                    TRow{"BlankBehindBracket", Every, u"(1+2) * 3", "! missing operator!"},
                    TRow{"OpenBracketAlone", Every, u"(", "! missing ) error!"},
                    TRow{"OpenBracketBehindOperator", Every, u"1+(", "! missing ) error!"},
                    TRow{"NoClosingBracket", Every, u"(1+2", "! missing ( error!"},
                    TRow{"NoClosingBracketDeeper", Every, u"(1+(2", "! missing ) error!"},
                    TRow{"InnerBracketClosed", Every, u"((1+2)", "! missing ( error!"},
                    TRow{"OpenBracketAtTheEnd", Every, u"(1+(", "! missing ) error!"},
                    TRow{"EndsInOperator", Every, u"1+", "! can not be nil afer operator"},
                    TRow{"EndsInOperatorAndSign", Every, u"2*-", "! can not be nil afer operator"},
                    TRow{"EndsInOperatorAndPlus", Every, u"2*+", "! can not be nil afer operator"},
                    TRow{"LoneMinus", Every, u"-", "! can not be nil afer operator"},
                    TRow{"LonePlus", Every, u"+", "! can not be nil afer operator"},
                    TRow{"TwoSigns", Every, u"--", "! can not be nil afer operator"},
                    TRow{"SignBeforeOperator", Every, u"-*5", "! can not be nil afer operator"},
                    TRow{"BlankOperand", Every, u"1+ +2", "! can not be nil afer operator"},
                    TRow{"BlankOperandBeforeTimes", Every, u"2* *3", "! can not be nil afer operator"},
                    TRow{"SignAndBlank", Every, u"2*- *3", "! can not be nil afer operator"},
                    TRow{"EmptyBrackets", Every, u"()", "! can not be nil afer operator"},
                    TRow{"NegatedEmptyBrackets", Every, u"-()", "! can not be nil afer operator"},
                    TRow{"BlankBrackets", Every, u"( )", "! can not be nil afer operator"},
                    TRow{"NestedEmptyBrackets", Every, u"(())", "! can not be nil afer operator"},
                    TRow{"EmptyBracketsBehindOperator", Every, u"1+()", "! can not be nil afer operator"},
                    TRow{"EmptyBracketsFirst", Every, u"()+1", "! can not be nil afer operator"},
                    TRow{"FailedBrackets", Every, u"(1+)*2", "! can not be nil afer operator"},
                    TRow{"FunctionInBrackets", Every, u"2*(f(3))", "! can not be nil afer operator"},
                    TRow{"TooBigInBrackets", Every, u"2*(9999999999999999)",
                         "! can not be nil afer operator"},
                    TRow{"OperatorOnly", Every, u"*", "! can not be nil afer operator"},
                    TRow{"OperatorsOnly", Every, u"*/", "! can not be nil afer operator"},
                    TRow{"OperatorForOperandAtTheEnd", Every, u"2*/", "! can not be nil afer operator"},
                    TRow{"OperatorsBeforeOperand", Every, u"*/5", "! can not be nil afer operator"},
                    TRow{"OperatorFirst", Every, u"*5", "! missing operator!"},
                    TRow{"TwoOperators", Every, u"2**3", "! missing operator!"},
                    TRow{"TwoDifferentOperators", Every, u"2*/5", "! missing operator!"},
                    TRow{"TwoOperatorsBeforeBlock", Every, u"2**(3+4)", "! missing operator!"},
                    TRow{"TwoBlocks", Every, u"(1+2)(3+4)", "! missing operator!"},
                    TRow{"TwoOperandBlocks", Every, u"(1)(2)", "! missing operator!"},
                    TRow{"NumberBehindBlock", Every, u"(1)2", "! missing operator!"},
                    TRow{"EmptyBracketsBehindBlock", Every, u"(1)()", "! can not be nil afer operator"},
                    TRow{"TwoBlocksInBrackets", Every, u"((1)(2))", "! can not be nil afer operator"}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Operands, Tree,
    testing::Values(TRow{"Largest", Every, u"1000000000000000", "1000000000000000"},
                    TRow{"LargestNegative", Every, u"-1000000000000000", "-1000000000000000"},
                    TRow{"LargestWithExponent", Every, u"1E15", "1E15"},
                    TRow{"OneMore", Every, u"1000000000000001", "! 1000000000000001 is too big"},
                    TRow{"OneLess", Every, u"-1000000000000001", "! -1000000000000001 is too Small"},
                    TRow{"BigBehindOperator", Every, u"1+1.1e15", "! 1.1e15 is too big"},
                    TRow{"FeetTwice", test::Imperial, u"5''", "! Imperial format error: 5''"},
                    TRow{"NameWithFootMark", test::Imperial, u"x'", "! Imperial format error: x'"},
                    TRow{"NameWithInchMark", test::Imperial, u"1+x\"", "! Imperial format error: x\""},
                    TRow{"ZeroDenominator", test::Imperial, u"1/0\"", "! Imperial format error: 1/0\""},
                    TRow{"DecimalFeetByMark",
                         {FeetAndInches, FractionalInches},
                         u"2.5'",
                         "! Imperial format error: 2.5'"}),
    NameOf);

// --- positions ---

struct TPlaceRow {
  const char* Name;
  std::u16string Text;
  int Place;
};

class Place : public TExpressionTest, public testing::WithParamInterface<TPlaceRow> {};

TEST_P(Place, OfTheErrorIsCountedInTheTextAsGiven) {
  Use(FeetAndInches);
  TParser Parser(GetParam().Text);
  EXPECT_EQ(Parser.FErrPos, -1);
  auto Root = Parser.Parse();
  if (!Parser.FHasError) Parser.GetDoubleValue(*Root);
  EXPECT_TRUE(Parser.FHasError);
  EXPECT_EQ(Parser.FErrPos, GetParam().Place);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Place,
    testing::Values(TPlaceRow{"EndOfText", u"1+", 2}, TPlaceRow{"EndBehindLeadingBlanks", u"  1+", 4},
                    TPlaceRow{"OperandAtFault", u"1+x'", 2}, TPlaceRow{"SecondOperand", u"(1)2", 3},
                    TPlaceRow{"SecondBlock", u"(1+2)(3+4)", 5}, TPlaceRow{"FunctionBracket", u"1+f(3)", 3},
                    TPlaceRow{"InsideBrackets", u"2*(3+)*4", 5}, TPlaceRow{"NoClosingBracket", u" (1+2", 5},
                    TPlaceRow{"DivisionSign", u"4+6/0", 3}, TPlaceRow{"MixedSum", u"1+(5'+3)", 5}),
    [](const auto& Info) { return Info.param.Name; });

} // namespace
} // namespace unitlib::test
