/// Tokens of a text: the general way, which knows every character.
#include "unitlib/expr/TreeReader.h"
#include "unitlib/model/UnitModel.h"

#include <algorithm>

namespace unitlib {

/// The signs in front of a token: "+" counts for nothing, two "-" cancel.
TTreeReader::TSigns TTreeReader::ReadSigns() {
  TSigns Signs;
  for (; !AtEnd() && IsSignChar(CharAt(FParser.FPoint)) && StandsForSign(FParser.FPoint); ++FParser.FPoint) {
    if (CharAt(FParser.FPoint) != u'-') continue;
    Signs.Negative = !Signs.Negative;
    Signs.Last = FParser.FPoint;
  }
  return Signs;
}

/// The characters from Start to End with what is left of the signs before them.
std::u16string_view TTreeReader::TokenText(TSigns Signs, std::int32_t Start, std::int32_t End) {
  if (Start == End && !Signs.Negative) return {}; // wherever that is
  const std::u16string_view Text(FParser.FString.data() + Start - 1, static_cast<size_t>(End - Start));
  if (!Signs.Negative) return Text;
  if (Signs.Last == Start - 1) return {Text.data() - 1, Text.size() + 1};
  return FText.assign(1, u'-').append(Text);
}

/// The next token. Signs stand only before it: behind its first character the only operator it can hold is the
/// bar of a fraction, and digits follow that.
TTreeReader::TToken TTreeReader::ReadToken() {
  const std::int32_t Point = FParser.FPoint;
  const TSigns Signs = ReadSigns();
  const std::int32_t Start = FParser.FPoint;
  for (;;) {
    while (FParser.FPoint >= 1 && FParser.FPoint < FEnd && !IsSpecialChar(CharAt(FParser.FPoint)))
      ++FParser.FPoint;
    if (AtEnd()) break;
    const std::int32_t At = FParser.FPoint++;
    const char16_t C = CharAt(At);
    if (C == u'(') {
      if (At > Start) return {TTokenKind::Function, At, {}};
      return {TTokenKind::Bracket, Point, TokenText(Signs, Start, At)};
    }
    if (!IsOperatorChar(C)) continue;
    const std::u16string_view Text = TokenText(Signs, Start, At);
    if (Text.empty()) return {TTokenKind::Operator, At, {&FParser.FString[static_cast<size_t>(At) - 1], 1}};
    if (C == u'/' && IsFractionBar(Text)) continue;
    --FParser.FPoint; // the operator is the next token
    return {TTokenKind::Operand, Point, Text};
  }
  return EndOrOperand(Point, TokenText(Signs, Start, FParser.FPoint));
}

/// What stands at the end of the text or bracket. Blanks there belong to nothing.
TTreeReader::TToken TTreeReader::EndOrOperand(std::int32_t Point, std::u16string_view Text) const {
  if (TrimView(Text).empty()) return {TTokenKind::End, FParser.FPoint, {}};
  return {TTokenKind::Operand, Point, Text};
}

/// In brackets every ")" that is met closes them: they are balanced, and inner ones are read as a whole.
bool TTreeReader::AtEnd() const noexcept {
  if (FParser.FPoint < 1 || FParser.FPoint >= FEnd) return true;
  return !FOpen.Empty() && CharAt(FParser.FPoint) == u')';
}

bool TTreeReader::StandsForSign(std::int32_t Point) const noexcept {
  const std::int32_t Start = FOpen.Empty() ? 1 : FOpen.Top().Start;
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

} // namespace unitlib
