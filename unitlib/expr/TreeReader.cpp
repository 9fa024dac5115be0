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
  return Node.FNodeType != ntOp && !Node.FIsBlock && (Node.FValue.empty() || OperatorOf(Node) == u'-');
}

/// One behind the last character that may be read, whatever a caller has done to the fields.
std::int32_t EndOf(const TParser& Parser) noexcept {
  return static_cast<std::int32_t>(
      std::min<size_t>(static_cast<size_t>(std::max(Parser.FTotal, 1)), Parser.FString.size() + 1));
}

} // namespace

std::int32_t FindClosingBracket(TParser& Parser, std::int32_t Start) {
  const std::int32_t End = EndOf(Parser);
  Start = std::max(Start, 1);
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

inline void TSequence::TakeOperand(TNode* Node) noexcept {
  if (!FRoot) {
    FRoot = Node;
    return;
  }
  TNode* const Op = std::exchange(FOp, nullptr);
  Put(Op->FRight, Node);
  if (FOpIsFactor && FRootIsTerm) { // binds tighter
    Put(Op->FLeft, FRoot->FRight.release());
    Put(FRoot->FRight, Op);
  } else {
    Put(Op->FLeft, FRoot);
    FRoot = Op;
    FRootIsTerm = !FOpIsFactor;
  }
}

std::u16string_view TSequence::Take(std::unique_ptr<TNode> Node) {
  if (FRoot && !FOp) {
    if (!IsOperator(*Node)) return NoOperatorMessage;
    if (FOperatorAsOperand) return NoOperandMessage;
    const char16_t Op = OperatorOf(*Node);
    TakeOperator(Node.release(), Op);
    return {};
  }
  if (IsMissing(*Node)) return NoOperandMessage;
  FOperatorAsOperand = IsOperator(*Node);
  TakeOperand(Node.release());
  return {};
}

std::unique_ptr<TNode> TSequence::Finish() {
  if (FOp || FOperatorAsOperand) Free();
  return std::unique_ptr<TNode>(Release());
}

void TSequence::Free() noexcept {
  delete std::exchange(FRoot, nullptr);
  delete std::exchange(FOp, nullptr);
}

TTreeReader::TTreeReader(TParser& Parser)
    : FParser(Parser), FMaker(Parser.FString.size()), FEnd(EndOf(Parser)) {}

TTreeReader::~TTreeReader() {
  DropBrackets();
  if (!FSequence.IsEmpty()) FSequence.Free();
}

std::unique_ptr<TNode> TTreeReader::ReadText() {
  if (FParser.FString.empty() || FParser.FHasError) return nullptr;
  FUnit = FindLengthUnit();
  // Without a unit the first operand is refused, and what a caller did to the positions only NextNode respects.
  const bool IsWhole = FParser.FPoint == 1 && static_cast<size_t>(FEnd) == FParser.FString.size() + 1;
  FReadsUsual = FUnit && IsWhole;
  FHasFractions = FUnit && IsImperialLengthCode(FUnit->UnitIdentifyCode);
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

/// True where an operand ends for sure: before an operator, at the end, before the ")" of a bracket.
inline bool TTreeReader::EndsOperand(const char16_t* Next) const noexcept {
  if (IsOperatorChar(*Next)) return true;
  return *Next == u')' ? !FOpen.Empty() : PointOf(Next) == FEnd;
}

/// The same behind digits, where a "/" may be the bar of an inch fraction.
inline bool TTreeReader::EndsNumber(const char16_t* Next) const noexcept {
  return EndsOperand(Next) && (*Next != u'/' || !FHasFractions);
}

/// A number of at most 15 digits; Next moves behind it. Null, and nothing read, for everything else. Its value is
/// had on the way: digits and a power of ten are exact doubles, so their quotient is the nearest one, as when its
/// text is read again.
TNode* TTreeReader::UsualNumber(const char16_t*& Next) {
  constexpr std::ptrdiff_t MostDigits = 15;
  const char16_t* const Begin = Next;
  std::uint64_t Mantissa = 0;
  const auto ReadDigits = [&Mantissa](const char16_t* From) {
    for (; IsDigit(*From); ++From) Mantissa = Mantissa * 10 + static_cast<unsigned>(*From - u'0');
    return From; // at the NUL behind the text at the latest
  };
  const char16_t* End = ReadDigits(Begin);
  std::ptrdiff_t Digits = End - Begin, Scale = 0;
  if (*End == u'.') {
    const char16_t* const BehindPoint = End + 1;
    End = ReadDigits(BehindPoint);
    Scale = End - BehindPoint;
    Digits += Scale;
  }
  if (Digits == 0 || Digits > MostDigits || !EndsNumber(End)) return nullptr;
  auto Value = static_cast<double>(Mantissa);
  if (Scale > 0) Value /= PowersOf10[Scale];
  TNode* const Number = FMaker.MakeNumber({Begin, static_cast<size_t>(End - Begin)}, Value, PlaceOf(Begin));
  Next = End;
  return Number;
}

/// A name without blanks; its first character, behind the digits in the character table, makes it no number.
/// Null, and nothing read, for everything else, a name with a mark at its end among it.
TNode* TTreeReader::UsualName(const char16_t*& Next) {
  const char16_t* const Begin = Next;
  const char16_t* End = Begin + 1;
  while (*End > u' ' && !IsSpecialChar(*End)) ++End;
  if (IsMark(End[-1]) || !EndsOperand(End)) return nullptr;
  TNode* const Node = FMaker.MakeName({Begin, static_cast<size_t>(End - Begin)}, PlaceOf(Begin));
  Next = End;
  return Node;
}

/// Where a length of digits, blanks, marks and a fraction ends, with a mark; null where none stands. The bar of
/// the fraction is what IsFractionBar says.
const char16_t* TTreeReader::EndOfLength(const char16_t* Next) const noexcept {
  if (!FHasFractions || !IsDigit(*Next)) return nullptr;
  while (IsImperialChar(*Next)) ++Next;
  if (*Next == u'/') {
    const char16_t* Digit = Next + 1;
    while (IsDigit(*Digit)) ++Digit;
    if (Digit > Next + 1 && *Digit == InchMark) Next = Digit;
  }
  if (*Next == InchMark) ++Next;
  return IsMark(Next[-1]) && EndsOperand(Next) ? Next : nullptr;
}

/// A number of several digits, a name or a length, which the sequence takes; Next moves behind it.
TTreeReader::TUsual TTreeReader::ReadUsualOperand(TSequence& Into, const char16_t*& Next) {
  TNode* Operand = *Next > u'9' ? UsualName(Next) : UsualNumber(Next);
  if (!Operand) {
    const char16_t* const End = EndOfLength(Next);
    if (!End || !HasClosing()) return TUsual::Other;
    // From here on all is as if it were read the general way: the length may be refused.
    FNodePoint = PointOf(Next);
    FParser.FPoint = PointOf(End);
    Operand =
        Classified(FMaker.Make(ntNum, {Next, static_cast<size_t>(End - Next)}, PlaceOf(Next))).release();
    if (!Operand) return TUsual::Refused;
    Next = End;
  }
  Into.TakeOperand(Operand);
  return TUsual::Taken;
}

/// Reads on as long as nothing but plain numbers, names, lengths, operators between operands and brackets come,
/// as in most texts; stops in front of everything else, which NextNode then judges. Makes the same nodes as
/// that, with a fifth of its instructions. return: false on error
bool TTreeReader::ReadUsual() {
  const char16_t* Next = FParser.FString.data() + FParser.FPoint - 1;
  TSequence* Into = &Innermost();
  bool IsDue = Into->NeedsOperand();
  if (!IsDue && (!Into->HasOperand() || IsOperatorChar(Next[-1]))) return true;
  for (;; IsDue = true) {
    if (IsDue) {
      for (; *Next == u'('; Into = &FOpen.Top().Content) {
        Next = OpenUsual(Next);
        if (!Next) return false;
      }
      if (IsDigit(*Next) && EndsNumber(Next + 1)) {
        Into->TakeOperand(FMaker.MakeDigit(*Next, PlaceOf(Next)));
        ++Next;
      } else {
        const TUsual Operand = ReadUsualOperand(*Into, Next);
        if (Operand == TUsual::Refused) return false;
        if (Operand == TUsual::Other) break;
      }
    }
    for (; *Next == u')' && !FOpen.Empty() && FOpen.Top().IsOperand; ++Next) Into = &CloseUsual();
    const char16_t Op = *Next;
    if (!IsOperatorChar(Op)) break;
    Into->TakeOperator(FMaker.MakeOperator(Op, PlaceOf(Next++)), Op);
  }
  FParser.FPoint = PointOf(Next);
  return HasClosing();
}

/// Opens a bracket whose content starts behind the blanks at Start: at the ")" at the latest, or at the end of the
/// text where there is none. return: where that is
[[gnu::always_inline]] inline std::int32_t TTreeReader::PushBracket(std::int32_t Point, std::int32_t Start,
                                                                    bool IsNegative, bool IsOperand) {
  while (CharAt(Start) <= u' ' && Start < FEnd) ++Start;
  TBracket& Open = FOpen.Grow();
  Open.Content = TSequence();
  Open.Point = Point;
  Open.Start = Start;
  Open.IsNegative = IsNegative;
  Open.IsOperand = IsOperand;
  return Start;
}

/// Opens the bracket at Next. A bracket that only usual tokens follow closes when its ")" comes; only where
/// reading stops before, that is looked for. return: where its content starts; null when it cannot be opened
const char16_t* TTreeReader::OpenUsual(const char16_t* Next) {
  const std::int32_t Point = PointOf(Next);
  if (FOpen.Empty()) {
    FOutermost = Point + 1;
    FClosing = 0;
  } else if (FOpen.Count() == DeepestBracket) {
    FParser.FPoint = Point + 1;
    if (HasClosing()) RefuseDepth(Point);
    return nullptr;
  }
  const std::int32_t Start = PushBracket(Point, Point + 1, false, true);
  return FParser.FString.data() + Start - 1;
}

/// Closes the innermost bracket. return: the sequence that it stands in
inline TSequence& TTreeReader::CloseUsual() {
  TNode* const Block = FOpen.Top().Content.Release();
  Block->FIsBlock = true;
  if (FOpen.Top().IsNegative) Block->FIsNegative = !Block->FIsNegative;
  FOpen.Pop();
  TSequence& Into = Innermost();
  Into.TakeOperand(Block);
  return Into;
}

std::unique_ptr<TNode> TTreeReader::MakeNode(const TToken& Token) {
  if (Token.Kind == TTokenKind::Function) {
    Fail(FunctionMessage, Token.Point);
    return nullptr;
  }
  auto Node = FMaker.Make(Token.Kind == TTokenKind::Operator ? ntOp : ntNum, TrimView(Token.Text),
                          FParser.PlaceOf(Token.Point));
  if (Node->FNodeType == ntOp || IsMissing(*Node)) return Node; // judged by the place where it stands
  return Classified(std::move(Node));
}

/// The operand that starts at FNodePoint; null when it is refused.
std::unique_ptr<TNode> TTreeReader::Classified(std::unique_ptr<TNode> Operand) {
  const std::u16string Message = ClassifyOperand(*Operand, LengthUnit());
  if (Message.empty()) return Operand;
  Fail(Message, FNodePoint);
  return nullptr;
}

bool TTreeReader::OpenBracket(const TToken& Token) {
  if (FOpen.Empty()) {
    FOutermost = FParser.FPoint;
    if (!FindClosing()) return false;
  }
  if (FOpen.Count() == DeepestBracket) return RefuseDepth(Token.Point);
  FParser.FPoint = PushBracket(Token.Point, FParser.FPoint, !Token.Text.empty(), Innermost().NeedsOperand());
  return true;
}

/// False, with the error set, when the outermost open bracket lacks its ")".
bool TTreeReader::HasClosing() {
  return FOpen.Empty() || FClosing != 0 || FindClosing();
}

bool TTreeReader::FindClosing() {
  FClosing = FindClosingBracket(FParser, FOutermost);
  return FClosing != 0;
}

bool TTreeReader::RefuseDepth(std::int32_t Point) {
  FParser.SetError(TooDeepMessage, FParser.PlaceOf(Point));
  return false;
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
  DropBrackets();
  FParser.FPoint = FClosing + 1;
}

void TTreeReader::DropBrackets() noexcept {
  for (; !FOpen.Empty(); FOpen.Pop()) FOpen.Top().Content.Free();
}

} // namespace unitlib
