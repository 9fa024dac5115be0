/// Simplified trees: numbers folded, signs of blocks kept, numbers brought together around variables.
#include "ExpressionTests.h"

#include <gtest/gtest.h>

#include <limits>

namespace unitlib::test {
namespace {

struct TRow {
  const char* Name;
  std::vector<TLengthUnit> Units;
  std::u16string Text;
  std::string Tree;
};

class MergedTree : public TExpressionTest, public testing::WithParamInterface<TRow> {};

TEST_P(MergedTree, IsSimple) {
  for (const TLengthUnit Unit : GetParam().Units) {
    Use(Unit);
    EXPECT_EQ(Merged(GetParam().Text), GetParam().Tree) << "unit " << Unit;
  }
}

const std::u16string Tiny = u"0." + std::u16string(199, u'0') + u"1"; // 1E-200

std::string NameOf(const testing::TestParamInfo<TRow>& Info) {
  return Info.param.Name;
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, MergedTree,
    testing::Values(
        TRow{"Sum", Every, u"1+2*3", "7"}, TRow{"Blocks", Every, u"(1+2)*(3-5)", "-6"},
        TRow{"Operand", Every, u"1.50", "1.50"}, TRow{"NegativeBlock", Every, u"-(1+2)", "-3"},
        TRow{"NegativeOperand", Every, u"-(5)", "-5"}, TRow{"NegatedNegative", Every, u"-(-5)", "5"},
        TRow{"TwoNegations", Every, u"-(-(5))", "[5]"}, TRow{"TwoNegationsOfASum", Every, u"-(-(1+2))", "3"},
        TRow{"SubtractedNegation", Every, u"2-(-(3))", "5"},
        TRow{"NegationInside", Every, u"2*(-(3)+4)", "2"}, TRow{"NegativeZero", Every, u"-(0)", "0"},
        TRow{"FifteenDigits", Every, u"1/3", "0.333333333333333"},
        // 0.666666666666667 x 3 is 2.000000000000001, of which 15 digits are 2
        TRow{"EveryStepHasFifteenDigits", Every, u"2/3*3", "2"}, TRow{"Tenths", Every, u"0.1+0.2", "0.3"},
        TRow{"Small", Every, u"1/1000000", "1E-6"},
        TRow{"DivisionByZero", Every, u"6/(2-2)", "! can not div by zero!"},
        TRow{"SumTooBig", Every, u"1000000000000000+1000000000000000", "! 2E15 is too big"},
        TRow{"SumTooSmall", Every, u"-1e15-1e15", "! -2E15 is too Small"},
        TRow{"NotFinite", Every, u"1e15/0." + std::u16string(308, u'0') + u"1", "! INF is too big"},
        TRow{"NotFiniteNegative", Every, u"-1e15/0." + std::u16string(308, u'0') + u"1",
             "! -INF is too Small"},
        TRow{"ImperialSum", Imperial, u"5'+6\"", "1.6764:i"},
        TRow{"ImperialTimes", Imperial, u"2*5'", "3.048:i"},
        TRow{"NegatedImperial", Imperial, u"-(5')", "-1.524:i"},
        TRow{"ImperialOperand", Imperial, u"5'6\"", "5'6\":i"},
        TRow{"NegatedImperialSum", Imperial, u"-(5'+6\")+1'", "-1.3716:i"},
        TRow{"FoldedSumIsImperial", Imperial, u"(5'+6\")+2", "! imperial number can not add with const!"},
        TRow{"FoldedDifferenceIsImperial", Imperial, u"2-(5'-6\")",
             "! imperial number can not sub with const!"},
        TRow{"FoldedSumTimesImperial", Imperial, u"(5'+6\")*2'", "! imperial can not mul by imperial!"},
        TRow{"PlainByFoldedSum", Imperial, u"3/(1'+1')", "! not imperial can not div by imperial!"},
        TRow{"FoldedSumByImperial", Imperial, u"(1'+1')/2'", "! imperial can not div by imperial!"}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    AsTheyAre, MergedTree,
    testing::Values(
        TRow{"Variable", Every, u"A", "A:v"}, TRow{"PlusNumber", Every, u"A+5", "(+ A:v 5)"},
        TRow{"MinusNumber", Every, u"A-5", "(- A:v 5)"}, TRow{"NumberPlus", Every, u"5+A", "(+ 5 A:v)"},
        TRow{"NumberMinus", Every, u"5-A", "(- 5 A:v)"}, TRow{"PlusNegative", Every, u"A+-5", "(+ A:v -5)"},
        TRow{"Times", Every, u"A*2", "(* A:v 2)"}, TRow{"TimesLeft", Every, u"2*A", "(* 2 A:v)"},
        TRow{"By", Every, u"A/2", "(/ A:v 2)"}, TRow{"NumberBy", Every, u"6/A", "(/ 6 A:v)"},
        TRow{"ByZero", Every, u"A/0", "(/ A:v 0)"}, TRow{"TimesZero", Every, u"0*A", "(* 0 A:v)"},
        TRow{"FoldedNumber", Every, u"A+(2+3)", "(+ A:v 5)"},
        TRow{"FoldedNegation", Every, u"A-(-(5))", "(- A:v -5)"}, TRow{"Block", Every, u"(A+5)", "[+ A:v 5]"},
        TRow{"ProductAndOffset", Every, u"2*A+5", "(+ (* 2 A:v) 5)"},
        TRow{"OffsetAndProduct", Every, u"5-2*A", "(- 5 (* 2 A:v))"},
        TRow{"BlockOffset", Every, u"(2*A)+5", "(+ [* 2 A:v] 5)"},
        TRow{"NumberByNumberByVariable", Every, u"6/(2/A)", "(/ 6 [/ 2 A:v])"},
        TRow{"NumberBySum", Every, u"10/(A+5)", "(/ 10 [+ A:v 5])"},
        TRow{"SumByZero", Every, u"(A+5)/0", "(/ [+ A:v 5] 0)"},
        TRow{"ByZeroTimes", Every, u"A/0*2", "(* (/ A:v 0) 2)"},
        TRow{"TwoVariables", Every, u"A+B", "(+ A:v B:v)"}, TRow{"Product", Every, u"A*B", "(* A:v B:v)"},
        TRow{"SumTimesVariable", Every, u"(A+5)*B", "(* [+ A:v 5] B:v)"},
        TRow{"SameVariableTwice", Every, u"A-A", "(- A:v A:v)"},
        TRow{"ImperialOffset", Imperial, u"A+5'", "(+ A:v 5':i)"}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Offsets, MergedTree,
    testing::Values(
        TRow{"TwoOffsets", Every, u"A+5+3", "(+ A:v 8)"}, TRow{"ToZero", Every, u"A+5-5", "(+ A:v 0)"},
        TRow{"BelowZero", Every, u"A+5-8", "(- A:v 3)"}, TRow{"TwoSubtracted", Every, u"A-5-3", "(- A:v 8)"},
        TRow{"NumberFirst", Every, u"5+A+3", "(+ A:v 8)"}, TRow{"FromNumber", Every, u"5-A+3", "(- 8 A:v)"},
        TRow{"FromNumberBelowZero", Every, u"5-A-8", "(- (* A:v -1) 3)"},
        TRow{"OutOfBrackets", Every, u"1000-(A+500)", "(- 500 A:v)"},
        TRow{"OutOfBracketsOfADifference", Every, u"3-(2-A)", "(+ A:v 1)"},
        TRow{"OutOfManyBrackets", Every, u"2-(3-(4-(5-A)))", "(- A:v 2)"},
        TRow{"OutOfPlusBrackets", Every, u"(1+(2+(3+(4+A))))", "[+ A:v 10]"},
        TRow{"NegativeOffset", Every, u"A+-5+2", "(- A:v 3)"},
        TRow{"AroundAQuotient", Every, u"10/(A+5)+3+4", "(+ (/ 10 [+ A:v 5]) 7)"},
        TRow{"Imperial", Imperial, u"A+5'+6\"", "(+ A:v 1.6764:i)"},
        TRow{"ImperialOutOfBrackets", Imperial, u"A-(5'+6\")", "(- A:v 1.6764:i)"},
        TRow{"TwoVariables", Every, u"A+5+B+3", "(+ (+ A:v B:v) 8)"},
        TRow{"DifferenceOfSums", Every, u"(A+5)-(B+3)", "(+ (- A:v B:v) 2)"},
        TRow{"DifferenceOfADifference", Every, u"A-(B-3)", "(+ (- A:v B:v) 3)"},
        TRow{"VariableComesFirst", Every, u"5+A*2", "(+ (* A:v 2) 5)"},
        TRow{"VariablesComeFirst", Every, u"5+A*B", "(+ (* A:v B:v) 5)"},
        TRow{"TooBig", Every, u"A+1e15+1e15", "! 2E15 is too big"}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Signs, MergedTree,
    testing::Values(
        TRow{"Variable", Every, u"-(A)", "(* [A:v] -1)"}, TRow{"TwoNegations", Every, u"-(-(A))", "[A:v]"},
        TRow{"Sum", Every, u"-(A+5)", "(- (* A:v -1) 5)"}, TRow{"Difference", Every, u"-(A-5)", "(- 5 A:v)"},
        TRow{"FromNumber", Every, u"-(5-A)", "(- A:v 5)"},
        TRow{"PlusNumber", Every, u"-(A)+5", "(- 5 [A:v])"},
        TRow{"NumberMinus", Every, u"5--(A)", "(+ [A:v] 5)"},
        TRow{"TwoNegationsAndOffset", Every, u"-(-(A+1))+2", "(+ A:v 3)"},
        TRow{"Product", Every, u"-(2*A)", "(* -2 A:v)"}, TRow{"Quotient", Every, u"-(6/A)", "(/ -6 A:v)"},
        TRow{"SumTimes", Every, u"-(A+5)*2", "(- (* A:v -2) 10)"},
        TRow{"Times", Every, u"-(A)*2", "(* [A:v] -2)"}, TRow{"By", Every, u"-(A)/2", "(/ [A:v] -2)"},
        TRow{"NumberBy", Every, u"6/-(A)", "(/ -6 [A:v])"},
        TRow{"ByZero", Every, u"-(A)/0", "(/ (* [A:v] -1) 0)"},
        TRow{"OfAProductOfVariables", Every, u"-(A*B)", "(* (* A:v B:v) -1)"},
        TRow{"OfASumOfVariables", Every, u"-(A+B)", "(* [+ A:v B:v] -1)"},
        TRow{"BeforeAnotherVariable", Every, u"-(A)+B", "(- B:v [A:v])"},
        TRow{"BothVariables", Every, u"-(A)-B", "(* [+ [A:v] B:v] -1)"},
        TRow{"SubtractedNegation", Every, u"A--(B)", "(+ A:v [B:v])"}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Factors, MergedTree,
    testing::Values(
        TRow{"TimesTimes", Every, u"A*2*3", "(* A:v 6)"}, TRow{"LeftAndRight", Every, u"2*A*3", "(* A:v 6)"},
        TRow{"ByBy", Every, u"A/2/4", "(/ A:v 8)"}, TRow{"TimesBy", Every, u"A*6/3", "(* A:v 2)"},
        TRow{"ThirdIsKeptAsADivision", Every, u"A*2/3", "(/ A:v 1.5)"},
        TRow{"ByTimes", Every, u"A/4*2", "(/ A:v 2)"}, TRow{"InverseTimes", Every, u"6/A*2", "(/ 12 A:v)"},
        TRow{"InverseBy", Every, u"6/A/2", "(/ 3 A:v)"},
        TRow{"NumberByProduct", Every, u"6/(A*2)", "(/ 3 A:v)"},
        TRow{"NumberByQuotient", Every, u"6/(A/2)", "(/ 12 A:v)"},
        TRow{"OutOfASum", Every, u"2*(A+5)", "(+ (* A:v 2) 10)"},
        TRow{"OutOfADifference", Every, u"(5-A)*2", "(- 10 (* A:v 2))"},
        TRow{"NegativeFactor", Every, u"(A-5)*-2", "(+ (* A:v -2) 10)"},
        TRow{"SumByNumber", Every, u"(A+5)/2", "(+ (/ A:v 2) 2.5)"},
        TRow{"SumTimesZero", Every, u"(A+5)*0", "(+ (* A:v 0) 0)"},
        TRow{"OffsetsAndFactors", Every, u"2*(A+5)+1", "(+ (* A:v 2) 11)"},
        TRow{"ImperialOffsetTimes", Imperial, u"(A+5')*2", "(+ (* A:v 2) 3.048:i)"},
        TRow{"VariablesComeFirst", Every, u"2*(A*B)", "(* [* A:v B:v] 2)"},
        TRow{"OfTwoVariables", Every, u"A*B*2*3", "(* (* A:v B:v) 6)"},
        TRow{"ZeroTimes", Every, u"A*2*0", "(* A:v 0)"}, TRow{"TimesZeroBy", Every, u"0*A/5", "(* A:v 0)"},
        TRow{"ZeroByZero", Every, u"0*A/0", "(/ (* 0 A:v) 0)"},
        TRow{"NumberByZeroTimes", Every, u"6/(0*A)", "(/ 6 [* 0 A:v])"},
        // No operand is above 1E15; its reciprocal is allowed.
        TRow{"BeyondTheLimit", Every, u"A*1e10*1e10", "(/ A:v 1E-20)"},
        TRow{"ByBeyondTheLimit", Every, u"A/1e10/1e10", "(* A:v 1E-20)"},
        TRow{"OffsetBeyondTheLimitOfAFactor", Every, u"(A+1e10)/1e10/1e10", "(+ (* A:v 1E-20) 1E-10)"},
        TRow{"TooSmallForOneNumber", Every, u"A*" + Tiny + u"*" + Tiny,
             "(* (* A:v " + ToUtf8(Tiny) + ") " + ToUtf8(Tiny) + ")"}),
    NameOf);

const char* const VariableByImperial = "! var can not div or mul with imperial";

INSTANTIATE_TEST_SUITE_P(
    ImperialRefused, MergedTree,
    testing::Values(TRow{"Times", Imperial, u"A*5'", VariableByImperial},
                    TRow{"TimesLeft", Imperial, u"5'*A", VariableByImperial},
                    TRow{"By", Imperial, u"A/5'", VariableByImperial},
                    TRow{"ImperialBy", Imperial, u"5'/A", VariableByImperial},
                    TRow{"TimesFolded", Imperial, u"A*(2'+3')", VariableByImperial},
                    TRow{"TimesBehindAFactor", Imperial, u"A*2*3'", VariableByImperial},
                    TRow{"FoldedBeforeTheVariable", Imperial, u"2'*3*A", VariableByImperial},
                    TRow{"SumTimes", Imperial, u"(A+5)*5'", VariableByImperial},
                    TRow{"NegatedVariable", Imperial, u"-(A)*5'", VariableByImperial},
                    TRow{"TwoVariables", Imperial, u"(A+B)*5'", VariableByImperial},
                    TRow{"PlainOffset", Imperial, u"A+5'+3", "! imperial number can not add with const!"},
                    TRow{"PlainSubtracted", Imperial, u"A+5'-3", "! imperial number can not sub with const!"},
                    TRow{"OutOfBrackets", Imperial, u"1000-(A+5')",
                         "! imperial number can not sub with const!"}),
    NameOf);

// --- texts of simplified trees ---

struct TTextRow {
  const char* Name;
  TLengthUnit Unit;
  std::u16string Text;
  std::string Written;
};

class MergedTextForm : public TExpressionTest, public testing::WithParamInterface<TTextRow> {};

TEST_P(MergedTextForm, CanBeReadAgain) {
  Use(GetParam().Unit);
  EXPECT_EQ(MergedText(GetParam().Text), GetParam().Written);
  if (!GetParam().Written.starts_with('!')) {
    EXPECT_EQ(MergedText(FromUtf8(GetParam().Written)), GetParam().Written);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Rows, MergedTextForm,
    testing::Values(TTextRow{"Sign", Meters, u"-(A)", "A*(-1)"},
                    TTextRow{"SignOfASum", Meters, u"-(A+5)", "A*(-1)-5"},
                    TTextRow{"BracketsForASum", Meters, u"-(A+B)", "(A+B)*(-1)"},
                    TTextRow{"BracketsOnTheRight", Meters, u"-(A)-(B-C)", "(A+(B-C))*(-1)"},
                    TTextRow{"SmallFactor", Meters, u"A*(1/1000000)", "A*0.000001"},
                    TTextRow{"SmallOffset", Meters, u"A-1/1000000", "A-0.000001"},
                    TTextRow{"SmallNegativeFactor", Meters, u"A*(-1/1000000)", "A*(-0.000001)"},
                    TTextRow{"BigFactor", Meters, u"A*1e10*1e5", "A*1E15"},
                    TTextRow{"BracketInANameStaysOutside", Meters, u"A)-5-3", "A)-8"},
                    TTextRow{"BracketInANameInside", Meters, u"5-(A-3)-B)", "! missing ( error!"},
                    TTextRow{"BarBeforeAName", FeetAndInches, u"5* /2\"x", "! missing operator!"},
                    TTextRow{"NameThatLooksLikeInches", FeetAndInches, u"3\t/16\"x", "3/(16\"x)"},
                    TTextRow{"NameThatLooksLikeInchesInASum", FeetAndInches, u"A+3\t/16\"x", "A+3/(16\"x)"},
                    TTextRow{"NameThatLooksLikeInchesLess", FeetAndInches, u"A-3\t/16\"x", "A-3/(16\"x)"},
                    TTextRow{"SameNameInMetres", Meters, u"3/16\"x", "3/16\"x"}),
    [](const auto& Info) { return Info.param.Name; });

class Merging : public TExpressionTest {};

TEST_F(Merging, TwiceIsOnce) {
  Use(Meters);
  for (const char16_t* Text :
       {u"-(A+5)*2", u"1000-(A+500)", u"10/(A+5)+3", u"A*B-(C+1)", u"5-A-8", u"2*A+5"}) {
    TParser Parser(Text);
    auto Root = Parser.Parse();
    Parser.Merge(Root);
    const std::string Once = Described(Root);
    Parser.Merge(Root);
    EXPECT_EQ(Described(Root), Once);
    EXPECT_FALSE(Parser.FHasError);
  }
}

TEST_F(Merging, MarksEveryOperatorAroundAVariable) {
  Use(Meters);
  TParser Parser(u"-(A+5)*2+B/(C-1)");
  auto Root = Parser.Parse();
  Parser.Merge(Root);
  const auto Check = [](const auto& Self, const TNode& Node) -> void {
    EXPECT_FALSE(Node.FIsNegative);
    if (Node.FNodeType != ntOp) return;
    EXPECT_TRUE(Node.FIsVar);
    Self(Self, *Node.FLeft);
    Self(Self, *Node.FRight);
  };
  Check(Check, *Root);
}

TEST_F(Merging, OperandTextsOfMoreThanFifteenDigitsStayUntilTheyAreFolded) {
  Use(Meters);
  EXPECT_EQ(Merged(u"A+0.12345678901234567"), "(+ A:v 0.12345678901234567)");
  EXPECT_EQ(Merged(u"-(A+0.12345678901234567)"), "(- (* A:v -1) 0.12345678901234567)");
  EXPECT_EQ(Merged(u"-(0.12345678901234567)"), "-0.123456789012346");
}

TEST_F(Merging, SurvivesValuesThatAreNoNumbers) {
  for (const double Value :
       {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
        -std::numeric_limits<double>::infinity(), 1e300})
    for (const std::u16string_view Text : {u"A*0/5", u"A/0/5", u"0/A*5", u"A*2*5", u"(A+0)*5", u"5-(A+2)"}) {
      TParser Parser(Text);
      auto Root = Parser.Parse();
      (Root->FRight->FIsVar || Root->FRight->FNodeType == ntOp ? Root->FLeft : Root->FRight)->FDoubleValue =
          Value;
      EXPECT_NO_THROW(Parser.Merge(Root)) << ToUtf8(Text) << " with " << Value;
      EXPECT_TRUE(Root);
    }
}

} // namespace
} // namespace unitlib::test
