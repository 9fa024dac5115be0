/// Numbers folded in one walk: the same as operator by operator.
#include "tests/expr/ExpressionTests.h"
#include "unitlib/expr/NumberFolding.h"
#include "unitlib/rtl/Numbers.h"
#include "unitlib/rtl/Text.h"

#include <bit>
#include <cmath>
#include <random>

namespace unitlib {
namespace {

class Folding : public test::TExpressionTest {};

/// An operand of this value, made through its text.
std::unique_ptr<TNode> ThroughText(TParser& Parser, double Value, bool IsImperial, std::int32_t Pos) {
  if (!std::isfinite(Value)) return FoldedNumber(Parser, Value, IsImperial, Pos); // has no text
  auto Node = std::make_unique<TNode>();
  Node->FNodeType = ntNum;
  Node->FPos = Pos;
  Node->SetValue(FloatToStr(Value));
  Parser.ProcessNode(*Node);
  Node->FIsImperial = IsImperial;
  return Node;
}

/// The tree folded operator by operator, each result made through its text.
std::unique_ptr<TNode> FoldLiterally(TParser& Parser, const TNode& Node) {
  const double Sign = Node.FIsNegative ? -1 : 1;
  if (Node.FNodeType != ntOp)
    return Node.FIsNegative ? ThroughText(Parser, -Node.FDoubleValue, Node.FIsImperial, Node.FPos)
                            : Node.Clone();
  TNode Op;
  Op.FNodeType = ntOp;
  Op.FValue = Node.FValue;
  Op.FLeft = FoldLiterally(Parser, *Node.FLeft);
  Op.FRight = FoldLiterally(Parser, *Node.FRight);
  const double Value = ApplyOperator(Parser, Op, Op.FLeft->FDoubleValue, Op.FRight->FDoubleValue);
  return ThroughText(Parser, Sign * Value, Op.FLeft->FIsImperial || Op.FRight->FIsImperial, Node.FPos);
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

TEST_F(Folding, OneNumberIsMadeAsThroughItsText) {
  constexpr unsigned Seed = 20261122;
  std::mt19937_64 Random(Seed);
  const auto Check = [this](double Value) {
    TParser Parser(u""), Literal(u"");
    const auto Node = FoldedNumber(Parser, Value, false, 3), Wanted = ThroughText(Literal, Value, false, 3);
    ASSERT_EQ(Node->FValue, Wanted->FValue) << Value;
    ASSERT_EQ(Node->FStoreValue, Wanted->FStoreValue) << Value;
    ASSERT_EQ(std::bit_cast<std::uint64_t>(Node->FDoubleValue),
              std::bit_cast<std::uint64_t>(Wanted->FDoubleValue))
        << Value;
    ASSERT_EQ(Parser.FErrMsg, Literal.FErrMsg) << Value;
  };
  for (const double Value :
       {0.0, -0.0, 1e15, -1e15, 1e15 + 1, 999999999999999.0, 999999999999999.9, 1e-5, 9.99999999999999e-6,
        1e-22, 1e-23, 1.5e-37, 5e-324, 1e22, 1e300, 0.1 + 0.2, 123456789012345.6})
    Check(Value);
  for (int I = 0; I < 100'000; ++I) {
    const double Value = std::bit_cast<double>(Random()); // every magnitude there is
    if (std::isfinite(Value)) Check(Value);
    Check(static_cast<double>(static_cast<std::int64_t>(Random())) / std::pow(10.0, Random() % 30));
  }
}

} // namespace
} // namespace unitlib
