#include "unitlib/expr/ExpressionTools.h"
#include "unitlib/expr/NumberFolding.h"
#include "unitlib/expr/VariableSide.h"

#include <optional>
#include <vector>

namespace unitlib {
namespace {

/// A simplified part of a tree: one number, or a part with a variable.
struct TPart {
  std::unique_ptr<TNode> Number;
  std::optional<TVariableSide> Side;

  std::unique_ptr<TNode> ToNode() { return Side ? Side->ToNode() : std::move(Number); }
};

/// Walks a tree without recursion and puts simplified parts together, children before their operator.
class TNodeMerger {
public:
  explicit TNodeMerger(TParser& Parser) : FParser(Parser) {}

  std::unique_ptr<TNode> Merge(std::unique_ptr<TNode> Root) {
    FWaiting.push_back({std::move(Root), {}});
    while (!FWaiting.empty()) Step();
    return FDone.back().ToNode();
  }

private:
  /// A node whose children are taken out one after the other.
  struct TWaiting {
    std::unique_ptr<TNode> Node;
    enum { Whole, LeftTaken, BothTaken } State;
  };

  void Step() {
    TWaiting& Top = FWaiting.back();
    if (Top.State == TWaiting::Whole && !IsWholeOperator(*Top.Node)) {
      FDone.push_back(Leaf(std::move(Top.Node)));
      FWaiting.pop_back();
    } else if (Top.State == TWaiting::BothTaken) {
      const std::unique_ptr<TNode> Op = std::move(Top.Node);
      FWaiting.pop_back();
      Combine(*Op);
    } else {
      const bool Left = Top.State == TWaiting::Whole;
      Top.State = Left ? TWaiting::LeftTaken : TWaiting::BothTaken;
      FWaiting.push_back({std::move(Left ? Top.Node->FLeft : Top.Node->FRight), TWaiting::Whole});
    }
  }

  TPart Leaf(std::unique_ptr<TNode> Node) {
    if (Node->FNodeType == ntUnknown) Node->FNodeType = ntNum; // made by hand: a number like any other
    if (Node->FNodeType == ntOp) FParser.SetError(NoOperandMessage, Node->FPos);
    if (Node->FNodeType == ntOp || Node->FIsVar) return {nullptr, TVariableSide(FParser, std::move(Node))};
    if (!Node->FIsNegative) return {std::move(Node), {}};
    return {FoldedNumber(FParser, -Node->FDoubleValue, Node->FIsImperial, Node->FPos), {}};
  }

  /// Replaces the two parts done last by their operator on them.
  void Combine(TNode& Op) {
    TPart Right = std::move(FDone.back());
    FDone.pop_back();
    TPart& Left = FDone.back();
    if (!Left.Side && !Right.Side) {
      FoldNumbers(Op, Left, std::move(Right));
      return;
    }
    if (Left.Side && Right.Side) {
      Left.Side->Join(Op, std::move(*Right.Side));
    } else if (Left.Side) {
      Left.Side->Apply(Op, std::move(Right.Number), false);
    } else {
      Left.Side = std::move(Right.Side);
      Left.Side->Apply(Op, std::move(Left.Number), true);
    }
    if (Op.FIsNegative) Left.Side->Negate();
  }

  void FoldNumbers(TNode& Op, TPart& Left, TPart Right) {
    Op.FLeft = std::move(Left.Number);
    Op.FRight = std::move(Right.Number);
    const double Value = ApplyOperator(FParser, Op, Op.FLeft->FDoubleValue, Op.FRight->FDoubleValue);
    const bool IsImperial = Op.FLeft->FIsImperial || Op.FRight->FIsImperial;
    Left.Number = FoldedNumber(FParser, Op.FIsNegative ? -Value : Value, IsImperial, Op.FPos);
  }

  TParser& FParser;
  std::vector<TWaiting> FWaiting;
  std::vector<TPart> FDone;
};

/// True for a name beside a number, which is as simple as it gets: what the merger would make again of its
/// pieces. Only a product or quotient with an imperial number is refused.
bool IsSimplePair(const TNode& Op) {
  const char16_t Sign = OperatorOf(Op);
  const bool IsTerm = Sign == u'+' || Sign == u'-';
  if (Op.FIsNegative || (!IsTerm && Sign != u'*' && Sign != u'/') || !IsWholeOperator(Op)) return false;
  const TNode &Left = *Op.FLeft, &Right = *Op.FRight;
  if (Left.FNodeType != ntNum || Right.FNodeType != ntNum || Left.FIsVar == Right.FIsVar) return false;
  return !Left.FIsNegative && !Right.FIsNegative && (IsTerm || !(Left.FIsVar ? Right : Left).FIsImperial);
}

/// The node of an operator as if it were made anew for its operands, one of them a name.
void RenewOperator(TNode& Op) {
  Op.FIsVar = true;
  Op.FIsElev = Op.FIsImperial = false;
  Op.FStoreValue.clear();
  Op.FDoubleValue = 0.0;
}

} // namespace

std::unique_ptr<TNode> MergeTree(TParser& Parser, std::unique_ptr<TNode> Root) {
  if (IsSimplePair(*Root)) { // nearly every elevation is: a sixth of what it costs is spared
    RenewOperator(*Root);
    return Root;
  }
  // Numbers alone fold without a node for each result on the way: half the time of the general way. (Without a
  // unit every result on the way would be an error.)
  TTreeValue Folded{};
  if (Root->FNodeType == ntOp && FoldTree(*Root, Folded) && FindLengthUnit()) {
    const double Value = Root->FIsNegative ? -Folded.Value : Folded.Value;
    const std::int32_t Pos = Root->FPos;
    if (MakeNumber(*Root, Value, Folded.IsImperial, Pos)) return Root;
    return FoldedNumber(Parser, Value, Folded.IsImperial, Pos);
  }
  return TNodeMerger(Parser).Merge(std::move(Root));
}

} // namespace unitlib
