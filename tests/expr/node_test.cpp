/// Nodes and the parser's single steps, called by hand.
#include "ExpressionTests.h"
#include "unitlib/model/ZELUnitMgr.h"

#include <gtest/gtest.h>

#include <new>

namespace unitlib::test {
namespace {

std::unique_ptr<TNode> Number(double Value) {
  auto Node = std::make_unique<TNode>();
  Node->FNodeType = ntNum;
  Node->FDoubleValue = Value;
  return Node;
}

std::unique_ptr<TNode> Operator(std::u16string_view Sign, std::unique_ptr<TNode> Left,
                                std::unique_ptr<TNode> Right) {
  auto Node = std::make_unique<TNode>();
  Node->FNodeType = ntOp;
  Node->SetValue(Sign);
  Node->FLeft = std::move(Left);
  Node->FRight = std::move(Right);
  return Node;
}

class Node : public TExpressionTest {};

TEST_F(Node, CanBeMadeWithoutExceptions) {
  const std::unique_ptr<TNode> Made(new (std::nothrow) TNode);
  ASSERT_NE(Made, nullptr);
  EXPECT_EQ(Made->FLeft, nullptr);
}

TEST_F(Node, StartsEmpty) {
  const TNode Empty;
  EXPECT_EQ(Empty.FNodeType, ntUnknown);
  EXPECT_FALSE(Empty.FLeft || Empty.FRight);
  EXPECT_TRUE(Empty.FValue.empty() && Empty.FStoreValue.empty());
  EXPECT_FALSE(Empty.FIsBlock || Empty.FIsNegative || Empty.FIsVar || Empty.FIsElev || Empty.FIsImperial);
  EXPECT_EQ(Empty.FDoubleValue, 0.0);
  EXPECT_EQ((std::vector{ntUnknown, ntNum, ntOp}), (std::vector{TNodeType(0), TNodeType(1), TNodeType(2)}));
}

TEST_F(Node, AfterConstructionEmptiesAllButTheType) {
  auto Sum = Operator(u"+", Number(1), Number(2));
  Sum->FIsBlock = Sum->FIsElev = true;
  Sum->AfterConstruction();
  EXPECT_FALSE(Sum->FLeft || Sum->FRight || Sum->FIsBlock || Sum->FIsElev);
  EXPECT_EQ(Sum->FNodeType, ntOp);
  EXPECT_TRUE(Sum->FValue.empty());
}

TEST_F(Node, ValueIsTrimmedAndItsText) {
  TNode Any;
  Any.SetValue(u" \t 5' 6 \n");
  EXPECT_EQ(Any.FValue, u"5' 6");
  EXPECT_EQ(Any.ToString(), u"5' 6");
}

TEST_F(Node, BindsTighter) {
  TNode Times, Divide, Plus, Minus;
  Times.FValue = u"*";
  Divide.FValue = u"/";
  Plus.FValue = u"+";
  Minus.FValue = u"-";
  EXPECT_TRUE(Times.IsHigerThanOther(Plus, true));
  EXPECT_TRUE(Divide.IsHigerThanOther(Minus, true));
  EXPECT_FALSE(Plus.IsHigerThanOther(Minus, true));
  EXPECT_FALSE(Plus.IsHigerThanOther(Times, true));
  EXPECT_FALSE(Times.IsHigerThanOther(Divide, true));
  Plus.FIsBlock = true;
  EXPECT_FALSE(Times.IsHigerThanOther(Plus, true));
  EXPECT_TRUE(Times.IsHigerThanOther(Plus, false));
}

TEST_F(Node, CloneOfAnOperandLeavesOutBlockSignAndMark) {
  auto Operand = Number(1.5);
  Operand->FValue = u"5'";
  Operand->FStoreValue = u"1.524";
  Operand->FIsVar = Operand->FIsImperial = Operand->FIsBlock = Operand->FIsNegative = Operand->FIsElev = true;
  const auto Copy = Operand->Clone();
  EXPECT_EQ(Copy->FNodeType, ntNum);
  EXPECT_EQ(Copy->FValue, u"5'");
  EXPECT_EQ(Copy->FStoreValue, u"1.524");
  EXPECT_EQ(Copy->FDoubleValue, 1.5);
  EXPECT_TRUE(Copy->FIsVar && Copy->FIsImperial);
  EXPECT_FALSE(Copy->FIsBlock || Copy->FIsNegative || Copy->FIsElev);
}

TEST_F(Node, CloneOfAnOperatorIsDeepAndLeavesOutSignAndMark) {
  auto Sum = Operator(u"+", Number(1), Operator(u"*", Number(2), Number(3)));
  Sum->FIsBlock = Sum->FIsVar = Sum->FIsNegative = Sum->FIsElev = Sum->FIsImperial = true;
  Sum->FStoreValue = u"x";
  const auto Copy = Sum->Clone();
  EXPECT_NE(Copy->FRight, Sum->FRight);
  EXPECT_EQ(Copy->FRight->FRight->FDoubleValue, 3);
  EXPECT_TRUE(Copy->FIsBlock && Copy->FIsVar);
  EXPECT_FALSE(Copy->FIsNegative || Copy->FIsElev || Copy->FIsImperial);
  EXPECT_TRUE(Copy->FStoreValue.empty());
}

TEST_F(Node, CloneOfAnUnknownIsNull) {
  EXPECT_EQ(TNode().Clone(), nullptr);
  EXPECT_EQ(Operator(u"+", std::make_unique<TNode>(), Number(2))->Clone()->FLeft, nullptr);
}

class Parser : public TExpressionTest {};

TEST_F(Parser, StartsAtTheTrimmedText) {
  const TParser Any(u"  1+2 ");
  EXPECT_EQ(Any.FString, u"1+2");
  EXPECT_EQ(Any.FTotal, 4);
  EXPECT_EQ(Any.FPoint, 1);
  EXPECT_FALSE(Any.FHasError);
  EXPECT_TRUE(Any.FErrMsg.empty());
}

TEST_F(Parser, GivesItsTokensOneByOne) {
  Use(Meters);
  TParser Any(u"-5*(1+2)-A");
  std::vector<std::string> Tokens;
  std::vector<int> Points;
  while (const auto Token = Any.GetNode()) {
    Tokens.push_back(Described(*Token));
    Points.push_back(Any.FPoint);
  }
  // An operator token is a node without children.
  EXPECT_EQ(Tokens, (std::vector<std::string>{"-5", "(* none none)", "[+ 1 2]", "(- none none)", "A:v"}));
  EXPECT_EQ(Points, (std::vector{3, 4, 9, 10, 11}));
  EXPECT_FALSE(Any.FHasError);
}

TEST_F(Parser, BracketsWithoutAnExpressionAreNoNodeAndNoError) {
  Use(Meters);
  TParser Any(u"(1+)5");
  EXPECT_EQ(Any.GetNode(), nullptr);
  EXPECT_FALSE(Any.FHasError);
  EXPECT_EQ(Any.FPoint, 5);
  EXPECT_EQ(Described(Any.GetNode()), "5");
}

TEST_F(Parser, SingleTokenWithoutAnOperandIsRefused) {
  Use(Meters);
  TParser Any(u"-*5");
  EXPECT_EQ(Any.GetNode(), nullptr);
  EXPECT_EQ(Any.FErrMsg, u"can not be nil afer operator");
}

TEST_F(Parser, GivesTheTextInBrackets) {
  TParser Any(u"((1+2)*(3))+4");
  Any.FPoint = 2;
  EXPECT_EQ(Any.SubStringInBracket(), u"(1+2)*(3)");
  EXPECT_EQ(Any.FPoint, 12);
  EXPECT_FALSE(Any.FHasError);
}

TEST_F(Parser, GivesNoTextOfOpenBrackets) {
  TParser AtTheEnd(u"(");
  AtTheEnd.FPoint = 2;
  EXPECT_EQ(AtTheEnd.SubStringInBracket(), u"");
  EXPECT_EQ(AtTheEnd.FErrMsg, u"missing ) error!");
  TParser Flat(u"(1+2");
  Flat.FPoint = 2;
  EXPECT_EQ(Flat.SubStringInBracket(), u"");
  EXPECT_EQ(Flat.FErrMsg, u"missing ( error!");
  TParser Deeper(u"(1+(2");
  Deeper.FPoint = 2;
  EXPECT_EQ(Deeper.SubStringInBracket(), u"");
  EXPECT_EQ(Deeper.FErrMsg, u"missing ) error!");
}

TEST_F(Parser, SurvivesPositionsOutsideTheText) {
  Use(Meters);
  for (const int Point : {-2147483647, -1, 0, 9, 2147483647}) {
    TParser Any(u"(1+2)");
    Any.FPoint = Point;
    EXPECT_EQ(Any.GetNode(), nullptr) << Point;
    Any.FTotal = Point;
    Any.Parse();
    Any.SubStringInBracket();
  }
}

TEST_F(Parser, ClassifiesOperandsOfOneNode) {
  Use(FeetAndInches);
  TParser Any(u"");
  TNode Feet;
  Feet.SetValue(u"5'");
  Any.ProcessNode(Feet);
  EXPECT_TRUE(Feet.FIsImperial && !Feet.FIsVar);
  EXPECT_EQ(Feet.FStoreValue, u"1.524"); // 5 x 0.3048 m
  EXPECT_DOUBLE_EQ(Feet.FDoubleValue, 1.524);
  TNode Bad;
  Bad.SetValue(u"5''");
  Any.ProcessNode(Bad);
  EXPECT_TRUE(Bad.FIsImperial);
  EXPECT_EQ(Bad.FStoreValue, u"1");
  EXPECT_EQ(Bad.FDoubleValue, 1.0);
  EXPECT_EQ(Any.FErrMsg, u"Imperial format error: 5''");
  TNode Big;
  Big.SetValue(u"1e16");
  Any.ProcessNode(Big);
  EXPECT_FALSE(Big.FIsVar || Big.FIsImperial);
  EXPECT_EQ(Big.FStoreValue, u"1");
  EXPECT_EQ(Big.FDoubleValue, 1.0);
  EXPECT_EQ(Any.FErrMsg, u"1e16 is too big");
}

TEST_F(Parser, ValueOfATreeWithoutAnOperandIsZeroAndAnError) {
  for (const bool Left : {false, true}) {
    const auto Half = Operator(u"+", Left ? Number(5) : nullptr, Left ? nullptr : Number(5));
    TParser Any(u"");
    EXPECT_EQ(Any.GetDoubleValue(*Half), 0.0);
    EXPECT_EQ(Any.FErrMsg, u"can not be nil afer operator");
  }
  const auto Whole = Operator(u"+", Number(7), Operator(u"*", nullptr, nullptr));
  TParser Any(u"");
  EXPECT_EQ(Any.GetDoubleValue(*Whole), 7.0);
  EXPECT_TRUE(Any.FHasError);
}

TEST_F(Parser, MergeOfATreeWithoutAnOperandIsAnError) {
  Use(Meters);
  auto Half = Operator(u"+", Operator(u"*", Number(2), nullptr), Number(3));
  TParser Any(u"");
  Any.Merge(Half);
  EXPECT_EQ(Any.FErrMsg, u"can not be nil afer operator");
  EXPECT_TRUE(Half);
  std::unique_ptr<TNode> Nothing;
  Any.Merge(Nothing);
  EXPECT_FALSE(Nothing);
}

TEST_F(Parser, UnknownOperatorIsZeroWithoutAnError) {
  const auto Power = Operator(u"^", Number(2), Number(3));
  TParser Any(u"");
  EXPECT_EQ(Any.GetDoubleValue(*Power), 0.0);
  EXPECT_FALSE(Any.FHasError);
}

TEST_F(Parser, MarksTheOperandsOfASum) {
  Use(Meters);
  struct TRow {
    const char16_t* Text;
    bool Left, Right;
  };
  for (const TRow& Row : {TRow{u"A+5", true, true}, TRow{u"A-5", true, true}, TRow{u"A*2+5", false, true},
                          TRow{u"A*2-5", true, true}, TRow{u"5-A*2", true, true}, TRow{u"5+A*2", true, false},
                          TRow{u"A*5", false, false}, TRow{u"5/A", false, false}}) {
    TParser Any(Row.Text);
    const auto Root = Any.Parse();
    Any.Mark(*Root);
    EXPECT_FALSE(Any.FHasError);
    EXPECT_EQ(Root->FLeft->FIsElev, Row.Left) << ToUtf8(Row.Text);
    EXPECT_EQ(Root->FRight->FIsElev, Row.Right) << ToUtf8(Row.Text);
    EXPECT_FALSE(Root->FIsElev);
  }
  TParser Single(u"5");
  const auto Operand = Single.Parse();
  Single.Mark(*Operand);
  EXPECT_TRUE(Operand->FIsElev);
}

TEST_F(Parser, MarksNothingAroundTwoVariables) {
  Use(Meters);
  TParser Any(u"A+B");
  const auto Root = Any.Parse();
  Any.Mark(*Root);
  EXPECT_TRUE(Any.FHasError);
  EXPECT_TRUE(Any.FErrMsg.empty());
  EXPECT_FALSE(Root->FLeft->FIsElev || Root->FRight->FIsElev);
}

} // namespace
} // namespace unitlib::test
