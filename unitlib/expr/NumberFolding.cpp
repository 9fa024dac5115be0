#include "unitlib/expr/NumberFolding.h"

#include "unitlib/expr/ExpressionTools.h"
#include "unitlib/rtl/Decimal.h"
#include "unitlib/rtl/ExactProduct.h"
#include "unitlib/rtl/Numbers.h"

#include <cmath>

namespace unitlib {
namespace {

/// The message when the operator is refused, else empty. Only the two direct operands are looked at.
std::u16string_view Refusal(char16_t Op, bool LeftImperial, bool RightImperial, double Right) {
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

double Compute(char16_t Op, double Left, double Right) {
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

/// What the text of a folded number is read back as: its 15 digits. False for numbers that are refused as
/// operands, or so small that their digits are no quotient of two exact doubles.
bool CutTo15Digits(double& Value) {
  constexpr int MostExact = 22; // powers of ten up to this one are exact
  const double Absolute = std::fabs(Value);
  if (!(Absolute <= LargestOperand)) return false;
  if (Absolute < LargestOperand && Absolute == std::trunc(Absolute)) {
    Value += 0.0; // -0 becomes 0
    return true;
  }
  const TDecimal15 Digits = ToDecimal15(Absolute);
  if (Digits.Exponent > 0 || Digits.Exponent < -MostExact) return false;
  const double Cut = static_cast<double>(Digits.Mantissa) / PowersOf10[-Digits.Exponent];
  Value = Value < 0 ? -Cut : Cut;
  return true;
}

/// Walks a tree of numbers, children before their operator, without recursion.
class TTreeFolder {
public:
  bool Fold(const TNode& Root, TTreeValue& Result) {
    const TNode* Node = &Root;
    for (;;) {
      while (Node->FNodeType == ntOp) { // down to the leftmost number
        if (!IsWholeOperator(*Node) || FDepth == MaxDepth) return false;
        FOps[FDepth++] = {Node, false, {}};
        Node = Node->FLeft.get();
      }
      if (Node->FNodeType != ntNum || Node->FIsVar) return false;
      TTreeValue Value{Node->FDoubleValue, Node->FIsImperial};
      if (Node->FIsNegative && !Negate(Value)) return false;
      for (;;) { // up while both operands are known
        if (FDepth == 0) {
          Result = Value;
          return true;
        }
        TOpen& Open = FOps[FDepth - 1];
        if (!Open.HasLeft) {
          Open.HasLeft = true;
          Open.Left = Value;
          Node = Open.Op->FRight.get();
          break;
        }
        if (!Combine(*Open.Op, Open.Left, Value)) return false;
        if (--FDepth == 0) {
          Result = Value;
          return true;
        }
        if (Open.Op->FIsNegative) Value.Value = -Value.Value;
        if (!CutTo15Digits(Value.Value)) return false;
      }
    }
  }

private:
  static constexpr size_t MaxDepth = 32; // deeper trees take the general way
  struct TOpen {
    const TNode* Op;
    bool HasLeft;
    TTreeValue Left;
  };

  static bool Negate(TTreeValue& Value) {
    Value.Value = -Value.Value;
    return CutTo15Digits(Value.Value);
  }

  static bool Combine(const TNode& Op, const TTreeValue& Left, TTreeValue& Right) {
    if (Op.FValue.size() != 1) return false;
    const char16_t Sign = Op.FValue[0];
    if (Sign != u'+' && Sign != u'-' && Sign != u'*' && Sign != u'/') return false;
    if (!Refusal(Sign, Left.IsImperial, Right.IsImperial, Right.Value).empty()) return false;
    Right = {Compute(Sign, Left.Value, Right.Value), Left.IsImperial || Right.IsImperial};
    return true;
  }

  TOpen FOps[MaxDepth];
  size_t FDepth = 0;
};

} // namespace

bool FoldTree(const TNode& Root, TTreeValue& Result) {
  return TTreeFolder().Fold(Root, Result);
}

double ApplyOperator(TParser& Parser, const TNode& Op, double Left, double Right) {
  if (Op.FValue != u"+" && Op.FValue != u"-" && Op.FValue != u"*" && Op.FValue != u"/") return 0.0;
  const std::u16string_view Message =
      Refusal(Op.FValue[0], Op.FLeft->FIsImperial, Op.FRight->FIsImperial, Right);
  if (Message.empty()) return Compute(Op.FValue[0], Left, Right);
  Parser.SetError(Message, Op.FPos);
  return 0.0;
}

std::unique_ptr<TNode> FoldedNumber(TParser& Parser, double Value, bool IsImperial, std::int32_t Pos) {
  auto Node = std::make_unique<TNode>();
  Node->FNodeType = ntNum;
  Node->FPos = Pos;
  if (std::isfinite(Value)) {
    Node->SetValue(FloatToStr(Value));
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
