#include "unitlib/expr/NumberFolding.h"

#include "unitlib/expr/ExpressionTools.h"
#include "unitlib/rtl/Decimal.h"
#include "unitlib/rtl/ExactProduct.h"
#include "unitlib/rtl/Numbers.h"

#include <cmath>

namespace unitlib {
namespace {

/// The message when the operator is refused, else empty. Only the two direct operands are looked at.
inline std::u16string_view Refusal(char16_t Op, bool LeftImperial, bool RightImperial, double Right) {
  switch (Op) {
  case u'+':
    return LeftImperial != RightImperial ? ImperialAddMessage : std::u16string_view();
  case u'-':
    return LeftImperial != RightImperial ? ImperialSubMessage : std::u16string_view();
  case u'*':
    return LeftImperial && RightImperial ? ImperialMulMessage : std::u16string_view();
  default:
    if (Right == 0) return ZeroDivMessage;
    if (!RightImperial) return {};
    return LeftImperial ? ImperialByImperialMessage : PlainByImperialMessage;
  }
}

inline double Compute(char16_t Op, double Left, double Right) {
  switch (Op) {
  case u'+':
    return Left + Right;
  case u'-':
    return Left - Right;
  case u'*':
    return Left * Right;
  default:
    return Left / Right;
  }
}

/// The double that the text of these digits is read back as; false for numbers that are refused as operands,
/// or so small that their digits are no quotient of two exact doubles.
bool ValueOf(TDecimal15 Digits, double& Value) noexcept {
  constexpr int MostExact = 22; // powers of ten up to this one are exact
  if (Digits.Exponent > MostExact || Digits.Exponent < -MostExact) return false;
  const auto Mantissa = static_cast<double>(Digits.Mantissa);
  Value = Digits.Exponent < 0 ? Mantissa / PowersOf10[-Digits.Exponent]
                              : Mantissa * PowersOf10[Digits.Exponent]; // exact up to 2^53
  return Value <= LargestOperand;
}

bool CutFraction(double& Value) {
  double Cut = 0.0;
  if (!ValueOf(ToDecimal15(std::fabs(Value)), Cut)) return false;
  Value = Value < 0 ? -Cut : Cut;
  return true;
}

/// What the text of a folded number is read back as: its 15 digits. False where ValueOf is.
inline bool CutTo15Digits(double& Value) {
  const double Absolute = std::fabs(Value);
  if (!(Absolute < LargestOperand)) return Absolute == LargestOperand;
  if (Absolute != static_cast<double>(static_cast<std::int64_t>(Absolute))) return CutFraction(Value);
  Value += 0.0; // a whole number stays, but -0 becomes 0
  return true;
}

/// Applies an operator to two values, the second of which it replaces; false where it is refused or unknown.
inline bool Combine(const TNode& Op, const TTreeValue& Left, TTreeValue& Right) {
  const char16_t Sign = OperatorOf(Op);
  if (!Refusal(Sign, Left.IsImperial, Right.IsImperial, Right.Value).empty()) return false;
  switch (Sign) {
  case u'+':
    Right.Value = Left.Value + Right.Value;
    break;
  case u'-':
    Right.Value = Left.Value - Right.Value;
    break;
  case u'*':
    Right.Value = Left.Value * Right.Value;
    break;
  case u'/':
    Right.Value = Left.Value / Right.Value;
    break;
  default:
    return false;
  }
  Right.IsImperial = Left.IsImperial || Right.IsImperial;
  return true;
}

/// Value of a number without a name; false for every other node, and where CutTo15Digits is.
inline bool LeafValue(const TNode& Node, TTreeValue& Value) {
  if (Node.FNodeType != ntNum || Node.FIsVar) return false;
  Value = {Node.FDoubleValue, Node.FIsImperial};
  if (!Node.FIsNegative) return true;
  Value.Value = -Value.Value;
  return CutTo15Digits(Value.Value);
}

/// Folds a tree without recursion. Operands that are numbers need no place on the stack.
class TTreeFolder {
public:
  bool Fold(const TNode& Root, TTreeValue& Result) {
    for (const TNode* Node = &Root; Node;)
      if (!GoDown(Node) || !GoUp(Node)) return false;
    Result = FValue;
    return true;
  }

private:
  struct TOpen {
    const TNode* Op;
    TTreeValue Left;
    bool HasLeft; // its right operand is being folded; otherwise the left one
  };

  /// Down to an operator on two numbers.
  bool GoDown(const TNode*& Node) {
    for (;;) {
      if (!IsWholeOperator(*Node)) return false;
      const TNode &Left = *Node->FLeft, &Right = *Node->FRight;
      const bool HasLeft = Left.FNodeType != ntOp;
      if (HasLeft && !LeafValue(Left, FLeft)) return false;
      if (HasLeft && Right.FNodeType != ntOp) return LeafValue(Right, FValue);
      FOpen.Push({Node, FLeft, HasLeft});
      Node = HasLeft ? &Right : &Left;
    }
  }

  /// Up while both operands are known; Node becomes the operator that still needs its right one, or null.
  bool GoUp(const TNode*& Node) {
    for (;;) {
      if (!Combine(*Node, FLeft, FValue)) return false;
      if (FOpen.Empty()) {
        Node = nullptr;
        return true;
      }
      if (Node->FIsNegative) FValue.Value = -FValue.Value;
      if (!CutTo15Digits(FValue.Value)) return false;
      TOpen& Open = FOpen.Top();
      Node = Open.Op;
      if (Open.HasLeft) {
        FLeft = Open.Left;
      } else if (Node->FRight->FNodeType == ntOp) {
        Open.Left = FValue;
        Open.HasLeft = true;
        Node = Node->FRight.get();
        return true;
      } else {
        FLeft = FValue;
        if (!LeafValue(*Node->FRight, FValue)) return false;
      }
      FOpen.Pop();
    }
  }

  TTreeValue FLeft{}, FValue{}; // operands of the operator at hand; then FValue is its value
  TSmallStack<TOpen, 16> FOpen;
};

} // namespace

bool FoldTree(const TNode& Root, TTreeValue& Result) {
  return Root.FNodeType == ntOp ? TTreeFolder().Fold(Root, Result) : LeafValue(Root, Result);
}

double ApplyOperator(TParser& Parser, const TNode& Op, double Left, double Right) {
  if (Op.FValue != u"+" && Op.FValue != u"-" && Op.FValue != u"*" && Op.FValue != u"/") return 0.0;
  const std::u16string_view Message =
      Refusal(Op.FValue[0], Op.FLeft->FIsImperial, Op.FRight->FIsImperial, Right);
  if (Message.empty()) return Compute(Op.FValue[0], Left, Right);
  Parser.SetError(Message, Op.FPos);
  return 0.0;
}

bool MakeNumber(TNode& Node, double Value, bool IsImperial, std::int32_t Pos) {
  Node.AfterConstruction();
  Node.FNodeType = ntNum;
  Node.FPos = Pos;
  Node.FIsImperial = IsImperial;
  if (!std::isfinite(Value)) return false;
  const TDecimal15 Digits = ToDecimal15(std::fabs(Value));
  if (Value < 0) Node.FValue.push_back(u'-');
  AppendGeneral(Node.FValue, Digits); // FloatToStr of the value
  double Absolute = 0.0;
  if (!ValueOf(Digits, Absolute)) return false;
  Node.FDoubleValue = Value < 0 ? -Absolute : Absolute;
  Node.FStoreValue = Node.FValue;
  return true;
}

std::unique_ptr<TNode> FoldedNumber(TParser& Parser, double Value, bool IsImperial, std::int32_t Pos) {
  auto Node = std::make_unique<TNode>();
  const bool Made = MakeNumber(*Node, Value, IsImperial, Pos);
  if (Made && FindLengthUnit()) return Node;
  if (std::isfinite(Value)) {
    Node->FDoubleValue = 0.0;
    Node->FStoreValue.clear();
    Parser.ProcessNode(*Node);
  } else {
    Node->FValue = u"1";
    Node->FStoreValue = u"1";
    Node->FDoubleValue = 1.0;
    const bool Negative = Value < 0;
    Parser.SetError(
        (Negative ? u"-INF" : u"INF") + std::u16string(Negative ? TooSmallMessage : TooBigMessage), Pos);
  }
  Node->FIsImperial = IsImperial;
  return Node;
}

std::unique_ptr<TNode> FoldPair(TParser& Parser, char16_t Op, std::unique_ptr<TNode> Left,
                                std::unique_ptr<TNode> Right, std::int32_t Pos) {
  TNode Node;
  Node.FNodeType = ntOp;
  Node.FValue = Op;
  Node.FPos = Pos;
  Node.FLeft = std::move(Left);
  Node.FRight = std::move(Right);
  const double Value = ApplyOperator(Parser, Node, Node.FLeft->FDoubleValue, Node.FRight->FDoubleValue);
  return FoldedNumber(Parser, Value, Node.FLeft->FIsImperial || Node.FRight->FIsImperial, Pos);
}

std::unique_ptr<TNode> Negated(std::unique_ptr<TNode> Number) {
  if (Number->FDoubleValue == 0) return Number;
  std::u16string& Text = Number->FStoreValue;
  const bool WasNegative = Text.starts_with(u'-');
  if (WasNegative || Text.starts_with(u'+')) Text.erase(0, 1);
  if (!WasNegative) Text.insert(0, 1, u'-');
  Number->FValue = Text;
  Number->FDoubleValue = -Number->FDoubleValue;
  return Number;
}

} // namespace unitlib
