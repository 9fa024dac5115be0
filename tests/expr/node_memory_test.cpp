/// Nodes of one text share memory, which nobody must notice.
#include "tests/expr/ExpressionTests.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <new>
#include <thread>
#include <vector>

namespace unitlib {
namespace {

class NodeMemory : public test::TExpressionTest {
protected:
  /// The operands of a sum of Count terms, taken out of its tree; the rest of the tree is freed.
  static std::vector<std::unique_ptr<TNode>> Operands(int Count) {
    std::u16string Text = u"100";
    for (int I = 1; I < Count; ++I) Text += u"+" + std::u16string(1, static_cast<char16_t>(u'0' + I % 10));
    TParser Parser(Text);
    std::unique_ptr<TNode> Root = Parser.Parse();
    std::vector<std::unique_ptr<TNode>> Result;
    for (; Root->FLeft; Root = std::unique_ptr<TNode>(std::move(Root->FLeft)))
      Result.push_back(std::move(Root->FRight));
    Result.push_back(std::move(Root));
    return Result;
  }
  static double Sum(const std::vector<std::unique_ptr<TNode>>& Nodes) {
    double Result = 0;
    for (const auto& Node : Nodes) Result += Node->FDoubleValue;
    return Result;
  }
};

TEST_F(NodeMemory, OperandsOutliveTheirTree) {
  const auto Nodes = Operands(41);
  EXPECT_EQ(Nodes.size(), 41U);
  EXPECT_EQ(Sum(Nodes), 100 + 4 * 45);
}

TEST_F(NodeMemory, IsFreedInAnyOrder) {
  auto Nodes = Operands(41);
  std::rotate(Nodes.begin(), Nodes.begin() + 13, Nodes.end());
  for (size_t I = 0; I < Nodes.size(); I += 2) Nodes[I].reset();
  std::erase(Nodes, nullptr);
  EXPECT_EQ(Nodes.size(), 20U);
  EXPECT_GT(Sum(Nodes), 0);
}

TEST_F(NodeMemory, IsFreedOnSeveralThreadsAtATime) {
  auto Nodes = Operands(4001);
  std::vector<std::thread> Threads;
  for (size_t First = 0; First < 4; ++First)
    Threads.emplace_back([&Nodes, First] {
      for (size_t I = First; I < Nodes.size(); I += 4) Nodes[I].reset();
    });
  for (std::thread& Thread : Threads) Thread.join();
  EXPECT_EQ(std::count(Nodes.begin(), Nodes.end(), nullptr), 4001);
}

TEST_F(NodeMemory, TreesOfTwoTextsMayBeJoined) {
  TParser First(u"1+2*3"), Second(u"4-5");
  std::unique_ptr<TNode> Root = First.Parse();
  Root->FRight->FRight = Second.Parse();
  EXPECT_EQ(First.GetDoubleValue(*Root), 1 + 2 * (4 - 5));
  EXPECT_EQ(First.GetDoubleValue(*Root->Clone()), -1);
  Root->FLeft = std::make_unique<TNode>();
  Root.reset();
}

TEST_F(NodeMemory, EveryWayToMakeANodeIsLeft) {
  struct TNamed : TNode {
    std::u16string Name = u"a name too long for the object itself";
  };
  const std::unique_ptr<TNamed> Derived = std::make_unique<TNamed>();
  const std::unique_ptr<TNode> Quiet(new (std::nothrow) TNode);
  const std::unique_ptr<TNode[]> Row(new TNode[3]);
  alignas(TNode) std::byte Place[sizeof(TNode)];
  TNode* const There = new (Place) TNode;
  TNode Local;
  EXPECT_EQ(Derived->FPos + Quiet->FPos + Row[2].FPos + There->FPos + Local.FPos, -5);
  There->~TNode();
}

} // namespace
} // namespace unitlib
