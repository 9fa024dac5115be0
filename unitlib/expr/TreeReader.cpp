#include "unitlib/expr/TreeReader.h"

#include "unitlib/expr/ExpressionTools.h"
#include "unitlib/model/ZELUnitMgr.h"
#include "unitlib/rtl/Text.h"

#include <algorithm>

namespace unitlib {
namespace {

constexpr size_t DeepestBracket = 1000;

constexpr bool IsSignChar(char16_t C) noexcept {
  return C == u'+' || C == u'-';
}
constexpr bool IsOperatorChar(char16_t C) noexcept {
  return IsSignChar(C) || C == u'*' || C == u'/';
}
constexpr bool IsImperialChar(char16_t C) noexcept {
  return C == u' ' || C == FootMark || IsDigit(C);
}

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
  for (std::int32_t Point = Start; Point < End; ++Point) {
    const char16_t C = Parser.FString[static_cast<size_t>(Point) - 1];
    if (C == u')' && Depth == 0) return Point;
    if (C == u'(') ++Depth;
    if (C == u')') --Depth;
  }
  // Told apart by the depth at the end of the text; a text that ends right behind its "(" lacks the ")".
  const bool NamesOpening = Start < End && Depth < 1;
  Parser.FPoint = End;
  Parser.SetError(NamesOpening ? NoOpeningBracketMessage : NoClosingBracketMessage, Parser.PlaceOf(End));
  return 0;
}

std::u16string_view TSequence::Take(std::unique_ptr<TNode> Node) {
  if (FRoot && !FOp) {
    if (!IsOperator(*Node)) return NoOperatorMessage;
    if (FOperatorAsOperand) return NoOperandMessage;
    FOp = std::move(Node);
    return {};
  }
  if (IsMissing(*Node)) return NoOperandMessage;
  FOperatorAsOperand = IsOperator(*Node);
  if (FRoot)
    Attach(std::move(Node));
  else
    FRoot = std::move(Node);
  return {};
}

void TSequence::Attach(std::unique_ptr<TNode> Right) {
  FOp->FRight = std::move(Right);
  if (FOp->IsHigerThanOther(*FRoot, true)) {
    FOp->FLeft = std::move(FRoot->FRight);
    FRoot->FRight = std::move(FOp);
  } else {
    FOp->FLeft = std::move(FRoot);
    FRoot = std::move(FOp);
  }
}

std::unique_ptr<TNode> TSequence::Finish() {
  if (FOp || FOperatorAsOperand) FRoot.reset();
  return std::move(FRoot);
}

TTreeReader::TTreeReader(TParser& Parser) : FParser(Parser), FEnd(EndOf(Parser)) {}

std::unique_ptr<TNode> TTreeReader::ReadText() {
  if (FParser.FString.empty() || FParser.FHasError) return nullptr;
  TSequence Sequence;
  while (std::unique_ptr<TNode> Node = NextNode()) {
    const std::u16string_view Problem = Sequence.Take(std::move(Node));
    if (Problem.empty()) continue;
    FParser.SetError(Problem, FParser.PlaceOf(FNodePoint));
    return nullptr;
  }
  if (FParser.FHasError) return nullptr;
  std::unique_ptr<TNode> Root = FFailedPoint == 0 ? Sequence.Finish() : nullptr;
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
      const TToken Token = ReadToken();
      FNodePoint = Token.Point;
      if (Token.Kind == TTokenKind::Bracket) {
        if (!OpenBracket(Token)) return nullptr;
        continue;
      }
      std::unique_ptr<TNode> Node = Token.Kind == TTokenKind::End ? CloseBracket() : MakeNode(Token);
      if (!Node || FOpen.empty()) return Node;
      if (!TakeInBracket(std::move(Node))) return nullptr;
    }
  } catch (const EUnitError& Error) {
    FParser.SetError(Error.Message(), FParser.PlaceOf(FNodePoint));
    return nullptr;
  }
}

/// The usual operand: digits and points up to an operator, the end, or the ")" of its bracket. False, and
/// nothing read, for everything else. A third of the time of reading character by character into a text.
bool TTreeReader::ReadPlainNumber(TToken& Token) {
  const std::int32_t Start = FParser.FPoint;
  if (Start < 1) return false;
  std::int32_t End = Start;
  while (End < FEnd && (IsDigit(CharAt(End)) || CharAt(End) == u'.')) ++End;
  if (End == Start) return false;
  const std::u16string_view Text(FParser.FString.data() + Start - 1, static_cast<size_t>(End - Start));
  if (End < FEnd) {
    const char16_t C = CharAt(End);
    if (!IsOperatorChar(C) && (FOpen.empty() || C != u')')) return false;
    FParser.FPoint = End + 1; // as where IsFractionBar looks from
    const bool IsBar = C == u'/' && IsFractionBar(Text);
    FParser.FPoint = Start;
    if (IsBar) return false;
  }
  Token = {TTokenKind::Operand, Start, Text};
  FParser.FPoint = End;
  return true;
}

TTreeReader::TToken TTreeReader::ReadToken() {
  const std::int32_t Point = FParser.FPoint;
  if (TToken Token; ReadPlainNumber(Token)) return Token;
  std::u16string& Text = FText;
  Text.clear();
  while (!AtEnd()) {
    const std::int32_t At = FParser.FPoint++;
    const char16_t C = CharAt(At);
    if (C == u'(') {
      const bool IsFunction = !Text.empty() && Text != u"-";
      return {IsFunction ? TTokenKind::Function : TTokenKind::Bracket, IsFunction ? At : Point, Text};
    }
    if (IsSignChar(C) && StandsForSign(At)) {
      if (C == u'-' && Text == u"-")
        Text.clear();
      else if (C == u'-')
        Text.push_back(C);
      continue;
    }
    const bool Keep = !IsOperatorChar(C) || (C == u'/' && !Text.empty() && IsFractionBar(Text));
    if (!Keep && Text.empty())
      return {TTokenKind::Operator, At, {&FParser.FString[static_cast<size_t>(At) - 1], 1}};
    if (!Keep) {
      --FParser.FPoint; // the operator is the next token
      return {TTokenKind::Operand, Point, Text};
    }
    Text.push_back(C);
  }
  return EndOrOperand(Point);
}

/// What stands at the end of the text or bracket. Blanks there belong to nothing.
TTreeReader::TToken TTreeReader::EndOrOperand(std::int32_t Point) const {
  if (TrimView(FText).empty()) return {TTokenKind::End, FParser.FPoint, {}};
  return {TTokenKind::Operand, Point, FText};
}

/// In brackets every ")" that is met closes them: they are balanced, and inner ones are read as a whole.
bool TTreeReader::AtEnd() const noexcept {
  if (FParser.FPoint < 1 || FParser.FPoint >= FEnd) return true;
  return !FOpen.empty() && CharAt(FParser.FPoint) == u')';
}

bool TTreeReader::StandsForSign(std::int32_t Point) const noexcept {
  const std::int32_t Start = FOpen.empty() ? 1 : FOpen.back().Start;
  return Point == Start || IsOperatorChar(CharAt(Point - 1));
}

/// True when the "/" just read belongs to an inch fraction: digits and the inch mark follow.
bool TTreeReader::IsFractionBar(std::u16string_view Token) const {
  if (!IsImperialLengthCode(LengthUnit().UnitIdentifyCode)) return false;
  if (!std::all_of(Token.begin(), Token.end(), IsImperialChar)) return false;
  std::int32_t Point = FParser.FPoint;
  while (Point < FEnd && IsDigit(CharAt(Point))) ++Point;
  return Point > FParser.FPoint && Point < FEnd && CharAt(Point) == InchMark;
}

std::unique_ptr<TNode> TTreeReader::MakeNode(const TToken& Token) {
  if (Token.Kind == TTokenKind::Function) {
    Fail(FunctionMessage, Token.Point);
    return nullptr;
  }
  auto Node = std::make_unique<TNode>();
  Node->FNodeType = Token.Kind == TTokenKind::Operator ? ntOp : ntNum;
  Node->FValue.append(TrimView(Token.Text));
  Node->FPos = FParser.PlaceOf(Token.Point);
  if (Node->FNodeType == ntOp || IsMissing(*Node)) return Node; // judged by the place where it stands
  const std::u16string Message = ClassifyOperand(*Node, LengthUnit());
  if (Message.empty()) return Node;
  Fail(Message, Token.Point);
  return nullptr;
}

bool TTreeReader::OpenBracket(const TToken& Token) {
  if (FOpen.empty()) FClosing = FindClosingBracket(FParser);
  if (FClosing == 0) return false;
  if (FOpen.size() == DeepestBracket) {
    FParser.SetError(TooDeepMessage, FParser.PlaceOf(Token.Point));
    return false;
  }
  while (CharAt(FParser.FPoint) <= u' ') ++FParser.FPoint; // stops at the closing bracket at the latest
  FOpen.push_back({{}, Token.Point, FParser.FPoint, !Token.Text.empty()});
  return true;
}

std::unique_ptr<TNode> TTreeReader::CloseBracket() {
  if (FOpen.empty()) return nullptr;
  std::unique_ptr<TNode> Node = FOpen.back().Content.Finish();
  if (!Node) {
    Fail(NoOperandMessage, FParser.FPoint);
    return nullptr;
  }
  ++FParser.FPoint;
  FNodePoint = FOpen.back().Point;
  Node->FIsBlock = true;
  if (FOpen.back().IsNegative) Node->FIsNegative = !Node->FIsNegative; // -(-(x)) is x
  FOpen.pop_back();
  return Node;
}

bool TTreeReader::TakeInBracket(std::unique_ptr<TNode> Node) {
  const std::u16string_view Problem = FOpen.back().Content.Take(std::move(Node));
  if (Problem.empty()) return true;
  Fail(Problem, FNodePoint);
  return false;
}

/// Inside brackets the message is not passed on: outside an operand is missing.
void TTreeReader::Fail(std::u16string_view Message, std::int32_t Point) {
  if (FOpen.empty()) return FParser.SetError(Message, FParser.PlaceOf(Point));
  FFailedPoint = Point;
  FOpen.clear();
  FParser.FPoint = FClosing + 1;
}

} // namespace unitlib
