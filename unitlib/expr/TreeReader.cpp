#include "unitlib/expr/TreeReader.h"

#include "unitlib/expr/ExpressionTools.h"
#include "unitlib/model/UnitModel.h"
#include "unitlib/model/ZELUnitConst.h"
#include "unitlib/rtl/ExactProduct.h"
#include "unitlib/rtl/Text.h"

#include <algorithm>

namespace unitlib {
namespace {

constexpr size_t DeepestBracket = 1000;

bool IsOperator(const TNode& Node) noexcept {
  return Node.FNodeType == ntOp && !Node.FIsBlock; // a bracketed block is an operand
}

/// True for an operand of blanks only and for a lone sign.
bool IsMissing(const TNode& Node) noexcept {
  return Node.FNodeType != ntOp && !Node.FIsBlock && (Node.FValue.empty() || Node.FValue == u"-");
}

/// One behind the last character that may be read, whatever a caller has done to the fields.
std::int32_t EndOf(const TParser& Parser) noexcept {
  return static_cast<std::int32_t>(
      std::min<size_t>(static_cast<size_t>(std::max(Parser.FTotal, 1)), Parser.FString.size() + 1));
}

} // namespace

std::int32_t FindClosingBracket(TParser& Parser) {
  const std::int32_t End = EndOf(Parser);
  const std::int32_t Start = std::max(Parser.FPoint, 1);
  std::int32_t Depth = 0;
  const char16_t* const Text = Parser.FString.data();
  for (std::int32_t Point = Start; Point < End; ++Point) {
    const char16_t C = Text[Point - 1];
    if (C != u'(' && C != u')') continue;
    if (C == u')' && Depth == 0) return Point;
    Depth += C == u'(' ? 1 : -1;
  }
  // Told apart by the depth at the end of the text; a text that ends right behind its "(" lacks the ")".
  const bool NamesOpening = Start < End && Depth < 1;
  Parser.FPoint = End;
  Parser.SetError(NamesOpening ? NoOpeningBracketMessage : NoClosingBracketMessage, Parser.PlaceOf(End));
  return 0;
}

/// Gives a node to a place that holds none.
inline void Put(std::unique_ptr<TNode>& Place, TNode* Node) noexcept {
  static_cast<void>(Place.release()); // tells the compiler that there is nothing to free
  Place.reset(Node);
}

inline void TSequence::TakeOperand(std::unique_ptr<TNode> Node) noexcept {
  if (!FRoot) {
    FRoot = Node.release();
    return;
  }
  Put(FOp->FRight, Node.release());
  if (BindsTighter(*FOp, *FRoot, true)) {
    Put(FOp->FLeft, FRoot->FRight.release());
    Put(FRoot->FRight, FOp);
  } else {
    Put(FOp->FLeft, FRoot);
    FRoot = FOp;
  }
  FOp = nullptr;
}

std::u16string_view TSequence::Take(std::unique_ptr<TNode> Node) {
  if (FRoot && !FOp) {
    if (!IsOperator(*Node)) return NoOperatorMessage;
    if (FOperatorAsOperand) return NoOperandMessage;
    FOp = Node.release();
    return {};
  }
  if (IsMissing(*Node)) return NoOperandMessage;
  FOperatorAsOperand = IsOperator(*Node);
  TakeOperand(std::move(Node));
  return {};
}

std::unique_ptr<TNode> TSequence::Finish() {
  if (FOp || FOperatorAsOperand) Free();
  return std::unique_ptr<TNode>(std::exchange(FRoot, nullptr));
}

TSequence& TSequence::operator=(TSequence&& Other) noexcept {
  std::swap(FRoot, Other.FRoot);
  std::swap(FOp, Other.FOp);
  std::swap(FOperatorAsOperand, Other.FOperatorAsOperand);
  return *this;
}

void TSequence::Free() noexcept {
  delete std::exchange(FRoot, nullptr);
  delete std::exchange(FOp, nullptr);
}

TTreeReader::TTreeReader(TParser& Parser)
    : FParser(Parser), FMaker(Parser.FString.size()), FEnd(EndOf(Parser)) {}

std::unique_ptr<TNode> TTreeReader::ReadText() {
  if (FParser.FString.empty() || FParser.FHasError) return nullptr;
  FUnit = FindLengthUnit();
  // Without a unit the first operand is refused, and what a caller did to the positions only NextNode respects.
  const bool IsWhole = FParser.FPoint == 1 && static_cast<size_t>(FEnd) == FParser.FString.size() + 1;
  FReadsUsual = FUnit && IsWhole;
  while (std::unique_ptr<TNode> Node = NextNode()) {
    const std::u16string_view Problem = FSequence.Take(std::move(Node));
    if (Problem.empty()) continue;
    FParser.SetError(Problem, FParser.PlaceOf(FNodePoint));
    return nullptr;
  }
  if (FParser.FHasError) return nullptr;
  std::unique_ptr<TNode> Root = FFailedPoint == 0 ? FSequence.Finish() : nullptr;
  if (!Root)
    FParser.SetError(NoOperandMessage, FParser.PlaceOf(FFailedPoint == 0 ? FParser.FPoint : FFailedPoint));
  return Root;
}

std::unique_ptr<TNode> TTreeReader::ReadNode() {
  std::unique_ptr<TNode> Node = NextNode();
  if (!Node || !IsMissing(*Node)) return Node;
  FParser.SetError(NoOperandMessage, FParser.PlaceOf(FNodePoint));
  return nullptr;
}

/// The next operand, operator or bracket of the text itself. Null at its end, on error, and for a bracket
/// that holds no expression, which sets FFailedPoint only: there an operand is missing.
std::unique_ptr<TNode> TTreeReader::NextNode() {
  try {
    for (;;) {
      if (FReadsUsual && !ReadUsual()) return nullptr;
      if (FParser.FPoint >= FEnd && FOpen.Empty()) return nullptr;
      const TToken Token = ReadToken();
      FNodePoint = Token.Point;
      if (Token.Kind == TTokenKind::Bracket) {
        if (!OpenBracket(Token)) return nullptr;
        continue;
      }
      std::unique_ptr<TNode> Node = Token.Kind == TTokenKind::End ? CloseBracket() : MakeNode(Token);
      if (!Node || FOpen.Empty()) return Node;
      if (!TakeInBracket(std::move(Node))) return nullptr;
    }
  } catch (const EUnitError& Error) {
    FParser.SetError(Error.Message(), FParser.PlaceOf(FNodePoint));
    return nullptr;
  }
}

/// A number of at most 15 digits, up to an operator, the end, or the ")" of its bracket; null, and nothing
/// read, for everything else. Its value is had on the way: digits and a power of ten are exact doubles, so
/// their quotient is the nearest one, as when its text is read again.
[[gnu::always_inline]] inline std::unique_ptr<TNode> TTreeReader::UsualNumber() {
  constexpr std::ptrdiff_t MostDigits = 15;
  const std::int32_t Point = FParser.FPoint;
  const char16_t* const Begin = FParser.FString.data() + Point - 1;
  std::uint64_t Mantissa = 0;
  const auto ReadDigits = [&Mantissa](const char16_t* Next) {
    for (; IsDigit(*Next); ++Next) Mantissa = Mantissa * 10 + static_cast<unsigned>(*Next - u'0');
    return Next; // at the NUL behind the text at the latest
  };
  const char16_t* End = ReadDigits(Begin);
  std::ptrdiff_t Digits = End - Begin, Scale = 0;
  if (*End == u'.') {
    const char16_t* const BehindPoint = End + 1;
    End = ReadDigits(BehindPoint);
    Scale = End - BehindPoint;
    Digits += Scale;
  }
  if (Digits == 0 || Digits > MostDigits) return nullptr;
  const std::u16string_view Text(Begin, static_cast<size_t>(End - Begin));
  const auto EndPoint = Point + static_cast<std::int32_t>(Text.size());
  if (!IsOperatorChar(*End) && EndPoint != FEnd && (*End != u')' || FOpen.Empty())) return nullptr;
  if (*End == u'/' && IsImperialLengthCode(FUnit->UnitIdentifyCode))
    return nullptr; // may be a fraction's bar
  FParser.FPoint = EndPoint;
  auto Value = static_cast<double>(Mantissa);
  if (Scale > 0) Value /= PowersOf10[Scale];
  return FMaker.MakeNumber(Text, Value, FParser.PlaceOf(Point));
}

/// Reads on as long as nothing but plain numbers, operators between operands and brackets come, as in most
/// texts; stops in front of everything else, which NextNode then judges. Makes the same nodes as that, with a
/// third of its instructions. return: false when a bracket cannot be opened; the error is set then
bool TTreeReader::ReadUsual() {
  for (;;) {
    TSequence& Into = Innermost();
    if (Into.NeedsOperand()) {
      if (CharAt(FParser.FPoint) == u'(') { // the text ends with a NUL
        const std::int32_t Point = FParser.FPoint++;
        if (!OpenBracket({TTokenKind::Bracket, Point, {}})) return false;
        continue;
      }
      std::unique_ptr<TNode> Number = UsualNumber();
      if (!Number) break;
      Into.TakeOperand(std::move(Number));
    } else if (!Into.HasOperand() || IsOperatorChar(CharAt(FParser.FPoint - 1))) {
      break;
    }
    const std::int32_t Point = FParser.FPoint;
    const char16_t C = CharAt(Point);
    if (IsOperatorChar(C)) {
      ++FParser.FPoint;
      Into.TakeOperator(FMaker.Make(ntOp, {&C, 1}, FParser.PlaceOf(Point)));
    } else {
      if (C != u')' || FOpen.Empty() || !FOpen.Top().IsOperand) break;
      std::unique_ptr<TNode> Block = CloseBracket();
      Innermost().TakeOperand(std::move(Block));
    }
  }
  return true;
}

std::unique_ptr<TNode> TTreeReader::MakeNode(const TToken& Token) {
  if (Token.Kind == TTokenKind::Function) {
    Fail(FunctionMessage, Token.Point);
    return nullptr;
  }
  auto Node = FMaker.Make(Token.Kind == TTokenKind::Operator ? ntOp : ntNum, TrimView(Token.Text),
                          FParser.PlaceOf(Token.Point));
  if (Node->FNodeType == ntOp || IsMissing(*Node)) return Node; // judged by the place where it stands
  const std::u16string Message = ClassifyOperand(*Node, LengthUnit());
  if (Message.empty()) return Node;
  Fail(Message, Token.Point);
  return nullptr;
}

bool TTreeReader::OpenBracket(const TToken& Token) {
  if (FOpen.Empty()) FClosing = FindClosingBracket(FParser);
  if (FClosing == 0) return false;
  if (FOpen.Count() == DeepestBracket) {
    FParser.SetError(TooDeepMessage, FParser.PlaceOf(Token.Point));
    return false;
  }
  while (CharAt(FParser.FPoint) <= u' ') ++FParser.FPoint; // stops at the closing bracket at the latest
  const bool IsOperand = Innermost().NeedsOperand();
  TBracket& Open = FOpen.Grow(); // its content is empty: closing takes it out
  Open.Point = Token.Point;
  Open.Start = FParser.FPoint;
  Open.IsNegative = !Token.Text.empty();
  Open.IsOperand = IsOperand;
  return true;
}

std::unique_ptr<TNode> TTreeReader::CloseBracket() {
  if (FOpen.Empty()) return nullptr;
  std::unique_ptr<TNode> Node = FOpen.Top().Content.Finish();
  if (!Node) {
    Fail(NoOperandMessage, FParser.FPoint);
    return nullptr;
  }
  ++FParser.FPoint;
  FNodePoint = FOpen.Top().Point;
  Node->FIsBlock = true;
  if (FOpen.Top().IsNegative) Node->FIsNegative = !Node->FIsNegative; // -(-(x)) is x
  FOpen.Pop();
  return Node;
}

bool TTreeReader::TakeInBracket(std::unique_ptr<TNode> Node) {
  const std::u16string_view Problem = FOpen.Top().Content.Take(std::move(Node));
  if (Problem.empty()) return true;
  Fail(Problem, FNodePoint);
  return false;
}

/// Inside brackets the message is not passed on: outside an operand is missing.
void TTreeReader::Fail(std::u16string_view Message, std::int32_t Point) {
  if (FOpen.Empty()) return FParser.SetError(Message, FParser.PlaceOf(Point));
  FFailedPoint = Point;
  FOpen.Clear();
  FParser.FPoint = FClosing + 1;
}

} // namespace unitlib
