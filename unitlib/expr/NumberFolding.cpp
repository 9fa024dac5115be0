#include "unitlib/expr/NumberFolding.h"

#include "unitlib/expr/ExpressionTools.h"
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

} // namespace

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
