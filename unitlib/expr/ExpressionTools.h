/// What the files of the expression engine share: messages, the unit of lengths, walks without recursion.
#pragma once

#include "unitlib/expr/ZELUnitArthProcessor.h"
#include "unitlib/rtl/Errors.h"
#include "unitlib/rtl/SmallStack.h"

namespace unitlib {

class TUnit;

// The messages, letter for letter.
inline constexpr std::u16string_view FunctionMessage = u"unsupport function!"; // sic
inline constexpr std::u16string_view NoClosingBracketMessage = u"missing ) error!";
inline constexpr std::u16string_view NoOpeningBracketMessage = u"missing ( error!";
inline constexpr std::u16string_view NoOperatorMessage = u"missing operator!";
inline constexpr std::u16string_view NoOperandMessage = u"can not be nil afer operator"; // sic
inline constexpr std::u16string_view TooDeepMessage = u"too many nested brackets!";
inline constexpr std::u16string_view TooLongMessage = u"too long text!";
inline constexpr std::u16string_view ImperialFormatMessage = u"Imperial format error: "; // operand follows
inline constexpr std::u16string_view TooBigMessage = u" is too big";                     // operand before
inline constexpr std::u16string_view TooSmallMessage = u" is too Small"; // sic; operand before
inline constexpr std::u16string_view ImperialAddMessage = u"imperial number can not add with const!";
inline constexpr std::u16string_view ImperialSubMessage = u"imperial number can not sub with const!";
inline constexpr std::u16string_view ImperialMulMessage = u"imperial can not mul by imperial!";
inline constexpr std::u16string_view ZeroDivMessage = u"can not div by zero!";
inline constexpr std::u16string_view PlainByImperialMessage = u"not imperial can not div by imperial!";
inline constexpr std::u16string_view ImperialByImperialMessage = u"imperial can not div by imperial!";
inline constexpr std::u16string_view VarImperialMessage = u"var can not div or mul with imperial";

constexpr double LargestOperand = 1e15; // either sign, inclusive

/// Current unit of the measure that typed lengths are read with.
/// errors      EListError no configuration, no such measure, or the measure has no current unit
TUnit& CurrentLengthUnit();

/// The same; null where CurrentLengthUnit raises.
TUnit* FindLengthUnit();

/// Reads a length typed in a unit, in metres. return: false where it is none; errors as the unit's parser raises
bool ReadTypedLength(std::u16string_view Text, TUnit* Unit, double& Metres);
/// The same in the current unit of lengths; none where there is no such measure.
/// errors      EListError no configuration, or the measure has no current unit
bool ReadTypedLength(std::u16string_view Text, double& Metres);

/// Classifies an operand by its text, see TParser::ProcessNode; Unit is CurrentLengthUnit().
/// return      the message when the operand is refused, else empty
/// errors      what the unit's conversion raises
std::u16string ClassifyOperand(TNode& Node, TUnit& Unit);

/// The operator character of a node; 0 for a text of any other length.
inline char16_t OperatorOf(const TNode& Node) noexcept {
  return Node.FValue.size() == 1 ? *Node.FValue.data() : u'\0';
}
/// See TNode::IsHigerThanOther.
inline bool BindsTighter(const TNode& Node, const TNode& Other, bool RespectBlock) noexcept {
  const char16_t Op = OperatorOf(Node), OtherOp = OperatorOf(Other);
  return !(RespectBlock && Other.FIsBlock) && (Op == u'*' || Op == u'/') &&
         (OtherOp == u'+' || OtherOp == u'-');
}
/// True for an operator with both its operands.
inline bool IsWholeOperator(const TNode& Node) noexcept {
  return Node.FNodeType == ntOp && Node.FLeft && Node.FRight;
}
inline bool IsVariable(const TNode& Node) noexcept {
  return Node.FNodeType != ntOp && Node.FIsVar;
}

/// Calls Visit for every node, children before their operator and left before right.
template <class TVisit> void ForEachPostOrder(const TNode& Root, TVisit Visit) {
  struct TStep {
    const TNode* Node;
    bool Done; // its children are
  };
  TSmallStack<TStep, 8> Waiting;
  Waiting.Push({&Root, false});
  while (!Waiting.Empty()) {
    const TStep Step = Waiting.Top();
    const TNode* const Node = Step.Node;
    if (Step.Done || Node->FNodeType != ntOp) {
      Waiting.Pop();
      Visit(*Node);
      continue;
    }
    Waiting.Top().Done = true;
    if (Node->FRight) Waiting.Push({Node->FRight.get(), false});
    if (Node->FLeft) Waiting.Push({Node->FLeft.get(), false});
  }
}

/// Calls Call; an error of the library becomes the parser's.
template <class TCall> void KeepError(TParser& Parser, std::int32_t Pos, TCall Call) {
  try {
    Call();
  } catch (const EUnitError& Error) {
    Parser.SetError(Error.Message(), Pos);
  }
}

} // namespace unitlib
