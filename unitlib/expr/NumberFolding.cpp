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

/// What the text of a folded number is read back as: its 15 digits. False where ValueOf is.
bool CutTo15Digits(double& Value) {
  const double Absolute = std::fabs(Value);
  if (!(Absolute <= LargestOperand)) return false;
  if (Absolute < LargestOperand &&
      Absolute == static_cast<double>(static_cast<std::int64_t>(Absolute))) { // whole
    Value += 0.0; // -0 becomes 0
    return true;
  }
  double Cut = 0.0;
  if (!ValueOf(ToDecimal15(Absolute), Cut)) return false;
  Value = Value < 0 ? -Cut : Cut;
  return true;
}

/// Applies an operator to two values, the second of which it replaces; false where it is refused or unknown.
bool Combine(const TNode& Op, const TTreeValue& Left, TTreeValue& Right) {
  const char16_t Sign = OperatorOf(Op);
  if (Sign != u'+' && Sign != u'-' && Sign != u'*' && Sign != u'/') return false;
  if (!Refusal(Sign, Left.IsImperial, Right.IsImperial, Right.Value).empty()) return false;
  Right = {Compute(Sign, Left.Value, Right.Value), Left.IsImperial || Right.IsImperial};
  return true;
}

/// An operator whose left or right operand is being folded.
struct TOpenOperator {
  const TNode* Op;
  TTreeValue Left;
  bool HasLeft;
};

} // namespace

bool FoldTree(const TNode& Root, TTreeValue& Result) {
  TSmallStack<TOpenOperator, 16> Open;
  for (const TNode* Node = &Root;;) {
    for (; Node->FNodeType == ntOp; Node = Node->FLeft.get()) { // down to the leftmost number
      if (!IsWholeOperator(*Node)) return false;
      Open.Push({Node, {}, false});
    }
    if (Node->FNodeType != ntNum || Node->FIsVar) return false;
    TTreeValue Value{Node->FIsNegative ? -Node->FDoubleValue : Node->FDoubleValue, Node->FIsImperial};
    if (Node->FIsNegative && !CutTo15Digits(Value.Value)) return false;
    for (; !Open.Empty() && Open.Top().HasLeft; Open.Pop()) { // up while both operands are known
      const TOpenOperator& Done = Open.Top();
      if (!Combine(*Done.Op, Done.Left, Value)) return false;
      if (Open.Count() == 1) continue;
      if (Done.Op->FIsNegative) Value.Value = -Value.Value;
      if (!CutTo15Digits(Value.Value)) return false;
    }
    if (Open.Empty()) {
      Result = Value;
      return true;
    }
    Open.Top().Left = Value;
    Open.Top().HasLeft = true;
    Node = Open.Top().Op->FRight.get();
  }
}

double ApplyOperator(TParser& Parser, const TNode& Op, double Left, double Right) {
  if (Op.FValue != u"+" && Op.FValue != u"-" && Op.FValue != u"*" && Op.FValue != u"/") return 0.0;
  const std::u16string_view Message =
      Refusal(Op.FValue[0], Op.FLeft->FIsImperial, Op.FRight->FIsImperial, Right);
  if (Message.empty()) return Compute(Op.FValue[0], Left, Right);
  Parser.SetError(Message, Op.FPos);
  return 0.0;
}

std::unique_ptr<TNode> FoldedNumber(TParser& Parser, double Value, bool IsImperial, std::int32_t Pos,
                                    std::unique_ptr<TNode> Node) {
  if (Node)
    Node->AfterConstruction();
  else
    Node = std::make_unique<TNode>();
  Node->FNodeType = ntNum;
  Node->FPos = Pos;
  if (std::isfinite(Value)) {
    const TDecimal15 Digits = ToDecimal15(std::fabs(Value));
    if (Value < 0) Node->FValue.push_back(u'-');
    AppendGeneral(Node->FValue, Digits); // FloatToStr of the value
    if (ValueOf(Digits, Node->FDoubleValue) && FindLengthUnit()) {
      if (Value < 0) Node->FDoubleValue = -Node->FDoubleValue;
      Node->FStoreValue = Node->FValue;
    } else {
      Node->FDoubleValue = 0.0;
      Parser.ProcessNode(*Node);
    }
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
