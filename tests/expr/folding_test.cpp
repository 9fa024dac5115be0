/// Numbers folded in one walk: the same as operator by operator.
#include "tests/expr/ExpressionTests.h"
#include "unitlib/expr/NumberFolding.h"
#include "unitlib/rtl/Text.h"

#include <random>

namespace unitlib {
namespace {

class Folding : public test::TExpressionTest {};

/// The tree folded operator by operator, each result made through its text.
std::unique_ptr<TNode> FoldLiterally(TParser& Parser, const TNode& Node) {
  const double Sign = Node.FIsNegative ? -1 : 1;
  if (Node.FNodeType != ntOp)
    return Node.FIsNegative ? FoldedNumber(Parser, -Node.FDoubleValue, Node.FIsImperial, Node.FPos)
                            : Node.Clone();
  TNode Op;
  Op.FNodeType = ntOp;
  Op.FValue = Node.FValue;
  Op.FLeft = FoldLiterally(Parser, *Node.FLeft);
  Op.FRight = FoldLiterally(Parser, *Node.FRight);
  const double Value = ApplyOperator(Parser, Op, Op.FLeft->FDoubleValue, Op.FRight->FDoubleValue);
  return FoldedNumber(Parser, Sign * Value, Op.FLeft->FIsImperial || Op.FRight->FIsImperial, Node.FPos);
}

std::u16string RandomText(std::mt19937& Random, int Depth) {
  const auto Below = [&Random](unsigned Count) { return Random() % Count; };
  if (Depth == 0 || Below(4) == 0) {
    std::u16string Number = std::u16string(1, static_cast<char16_t>(u'0' + Below(10)));
    while (Below(3) > 0 && Number.size() < 12) Number += static_cast<char16_t>(u'0' + Below(10));
    if (Below(2) == 0) Number.insert(Number.size() / 2, 1, u'.');
    if (Below(6) == 0) Number += u"\"";
    return Number;
  }
  const std::u16string Operator(1, u"+-*/"[Below(4)]);
  const std::u16string Sides = RandomText(Random, Depth - 1) + Operator + RandomText(Random, Depth - 1);
  return Below(3) == 0 ? Sides : (Below(4) == 0 ? u"-(" : u"(") + Sides + u")";
}

TEST_F(Folding, AgreesWithOperatorByOperator) {
  constexpr unsigned Seed = 20261121;
  std::mt19937 Random(Seed);
  int Folded = 0;
  for (int I = 0; I < 20'000; ++I) {
    Use(test::Every[Random() % test::Every.size()]);
    const std::u16string Text = RandomText(Random, 4);
    TParser Parser(Text), Literal(Text);
    auto Root = Parser.Parse();
    const auto LiteralRoot = Literal.Parse();
    TTreeValue Value{};
    if (!Root || !FoldTree(*Root, Value)) continue;
    ++Folded;
    const auto Expected = FoldLiterally(Literal, *LiteralRoot);
    Parser.Merge(Root);
    ASSERT_EQ(Root->FValue, Expected->FValue) << ToUtf8(Text) << ", seed " << Seed;
    ASSERT_EQ(Root->FDoubleValue, Expected->FDoubleValue) << ToUtf8(Text);
    ASSERT_EQ(Root->FStoreValue, Expected->FStoreValue) << ToUtf8(Text);
    ASSERT_EQ(Root->FIsImperial, Expected->FIsImperial) << ToUtf8(Text);
    ASSERT_EQ(Parser.FHasError, Literal.FHasError) << ToUtf8(Text);
  }
  EXPECT_GT(Folded, 5'000);
}

} // namespace
} // namespace unitlib
