#include "unitlib/expr/NumberFolding.h"

#include "unitlib/expr/ExpressionTools.h"
#include "unitlib/rtl/Decimal.h"
#include "unitlib/rtl/ExactProduct.h"
#include "unitlib/rtl/Numbers.h"

#include <cmath>
#include <limits>

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

/// What the text of a folded number that is not whole is read back as; NaN where ValueOf is false.
double CutFraction(double Value) {
  const double Absolute = std::fabs(Value);
  double Cut = 0.0;
  const bool IsOperand =
      Absolute <= LargestOperand && (CutTo15Digits(Absolute, Cut) || ValueOf(ToDecimal15(Absolute), Cut));
  if (!IsOperand) return std::numeric_limits<double>::quiet_NaN();
  return Value < 0 ? -Cut : Cut;
}

/// True for whole numbers that are exact as operands. (-0 is one, but as an operand it is 0: add 0.0.)
inline bool IsWholeOperand(double Value) noexcept {
  return std::fabs(Value) < LargestOperand && Value == static_cast<double>(static_cast<std::int64_t>(Value));
}

/// What the text of a folded number is read back as: its 15 digits. False where ValueOf is.
inline bool CutToText(double& Value) {
  if (IsWholeOperand(Value)) {
    Value += 0.0;
    return true;
  }
  Value = CutFraction(Value);
  return !std::isnan(Value);
}

/// Applies an operator to two values, the second of which it replaces; false where it is refused or unknown.
inline bool Combine(const TNode& Op, const TTreeValue& Left, TTreeValue& Right) {
  const bool AnyImperial = Left.IsImperial || Right.IsImperial;
  const char16_t Sign = OperatorOf(Op);
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
    if (Right.Value == 0) return false;
    Right.Value = Left.Value / Right.Value;
    break;
  default:
    return false;
  }
  // Nothing but a quotient by zero is refused where no length is.
  if (AnyImperial && !Refusal(Sign, Left.IsImperial, Right.IsImperial, 1.0).empty()) return false;
  Right.IsImperial = AnyImperial;
  return true;
}

/// Value of a number without a name; false for every other node, and where CutToText is.
inline bool LeafValue(const TNode& Node, TTreeValue& Value) {
  if (Node.FNodeType != ntNum || Node.FIsVar) return false;
  Value = {Node.FDoubleValue, Node.FIsImperial};
  if (!Node.FIsNegative) return true;
  Value.Value = -Value.Value;
  return CutToText(Value.Value);
}

/// An operator that waits for an operand which is an operator itself.
struct TOpenFold {
  const TNode* Op;
  TTreeValue Left; // when HasLeft
  bool HasLeft;    // its right operand is being folded; otherwise the left one
};
using TOpenFolds = TSmallStack<TOpenFold, 16>; // operands that are numbers need no place

/// From an operator down to one on two numbers.
inline bool GoDown(const TNode*& Op, TOpenFolds& Open, TTreeValue& Left, TTreeValue& Right) {
  for (;;) {
    if (!IsWholeOperator(*Op)) return false;
    const TNode &LeftNode = *Op->FLeft, &RightNode = *Op->FRight;
    const bool HasLeft = LeftNode.FNodeType != ntOp;
    if (HasLeft && !LeafValue(LeftNode, Left)) return false;
    if (HasLeft && RightNode.FNodeType != ntOp) return LeafValue(RightNode, Right);
    Open.Push({Op, Left, HasLeft});
    Op = HasLeft ? &RightNode : &LeftNode;
  }
}

/// Up while both operands are known; Op becomes the operator to go down from, or null: then Right is the value
/// of the tree.
inline bool GoUp(const TNode*& Op, TOpenFolds& Open, TTreeValue& Left, TTreeValue& Right) {
  for (;; Open.Pop()) {
    if (!Combine(*Op, Left, Right)) return false;
    if (Open.Empty()) {
      Op = nullptr;
      return true;
    }
    if (Op->FIsNegative) Right.Value = -Right.Value;
    if (!CutToText(Right.Value)) return false;
    TOpenFold& Waiting = Open.Top();
    Op = Waiting.Op;
    if (Waiting.HasLeft) {
      Left = Waiting.Left;
      continue;
    }
    const TNode& RightNode = *Op->FRight;
    Left = Right;
    if (RightNode.FNodeType == ntOp) {
      Waiting.Left = Left;
      Waiting.HasLeft = true;
      Op = &RightNode;
      return true;
    }
    if (!LeafValue(RightNode, Right)) return false;
  }
}

/// Folds a tree without recursion.
bool FoldOperators(const TNode& Root, TTreeValue& Result) {
  TOpenFolds Open;
  TTreeValue Left{}, Right{};
  for (const TNode* Op = &Root; Op;)
    if (!GoDown(Op, Open, Left, Right) || !GoUp(Op, Open, Left, Right)) return false;
  Result = Right;
  return true;
}

} // namespace

bool FoldTree(const TNode& Root, TTreeValue& Result) {
  return Root.FNodeType == ntOp ? FoldOperators(Root, Result) : LeafValue(Root, Result);
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
  // FValue becomes FloatToStr of the value.
  if (IsWholeOperand(Value)) { // its own digits, without looking for 15 of them
    AppendInteger(Node.FValue, static_cast<std::int64_t>(Value));
    Node.FDoubleValue = Value + 0.0;
  } else {
    const TDecimal15 Digits = ToDecimal15(std::fabs(Value));
    if (Value < 0) Node.FValue.push_back(u'-');
    AppendGeneral(Node.FValue, Digits);
    double Absolute = 0.0;
    if (!ValueOf(Digits, Absolute)) return false;
    Node.FDoubleValue = Value < 0 ? -Absolute : Absolute;
  }
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
