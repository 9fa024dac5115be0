#include "apps/common/Utf8.h"

#include "apps/common/TextWidth.h"
#include "unitlib/rtl/Errors.h"
#include "unitlib/rtl/Text.h"

#include <algorithm>

namespace unitlib::app {
namespace {

/// Columns of a marked text on either side of its caret.
constexpr std::size_t Surroundings = 60;

std::string HexEscape(unsigned char C) {
  constexpr char Digits[] = "0123456789ABCDEF";
  return {'\\', 'x', Digits[C >> 4], Digits[C & 15]};
}

std::string PrintableCharacter(std::string_view Character) {
  const char First = Character.front();
  if (First == '\n') return "\\n";
  if (First == '\r') return "\\r";
  if (First == '\t') return "\\t";
  const auto Byte = static_cast<unsigned char>(First);
  const bool C1Control =
      Character.size() == 2 && Byte == 0xC2 && static_cast<unsigned char>(Character[1]) < 0xA0;
  if (Byte < 0x20 || Byte == 0x7F || (Character.size() == 1 && Byte >= 0x80)) return HexEscape(Byte);
  if (C1Control) return HexEscape(Byte) + HexEscape(static_cast<unsigned char>(Character[1]));
  return std::string(Character);
}

/// Start of the character that the byte at Place belongs to.
std::size_t CharacterStart(std::string_view Text, std::size_t Place) {
  while (Place > 0 && Place < Text.size() && (static_cast<unsigned char>(Text[Place]) & 0xC0) == 0x80)
    --Place;
  return Place;
}

const char* SkipDigits(const char* At, const char* End) {
  while (At != End && *At >= '0' && *At <= '9') ++At;
  return At;
}

const char* SkipSign(const char* At, const char* End) {
  return At != End && (*At == '+' || *At == '-') ? At + 1 : At;
}

/// Behind the exponent that starts at At; At itself when there is none. Missing: "e" without digits.
const char* SkipExponent(const char* At, const char* End, bool& Missing) {
  if (At == End || (*At != 'e' && *At != 'E')) return At;
  const char* Digits = SkipSign(At + 1, End);
  At = SkipDigits(Digits, End);
  Missing = At == Digits;
  return At;
}

} // namespace

std::u16string FromTerminal(std::string_view Text) {
  if (IsUtf8(Text)) return FromUtf8(Text);
  throw EConvertError(u"Not well-formed UTF-8: " + FromUtf8(Printable(Text)), FromUtf8(Text));
}

std::string Printable(std::string_view Text) {
  std::string Result;
  Result.reserve(Text.size());
  while (!Text.empty()) {
    const std::size_t Size = CharacterSize(Text);
    Result += PrintableCharacter(Text.substr(0, Size));
    Text.remove_prefix(Size);
  }
  return Result;
}

std::string MarkedText(std::string_view Text, std::size_t Place) {
  const bool Marked = Place <= Text.size() && !Text.empty();
  const std::size_t Centre = Marked ? Place : 0;
  const std::size_t First = Centre > Surroundings ? CharacterStart(Text, Centre - Surroundings) : 0;
  const std::size_t Last = CharacterStart(Text, std::min(Text.size(), Centre + Surroundings));
  const std::string Before = (First > 0 ? "..." : "") + Printable(Text.substr(First, Centre - First));
  std::string Result = "  " + Before + Printable(Text.substr(Centre, Last - Centre));
  if (Last < Text.size()) Result += "...";
  Result += '\n';
  if (Marked) Result += std::string(2 + DisplayWidth(Before), ' ') + "^\n";
  return Result;
}

std::size_t Utf8Offset(std::u16string_view Text, std::size_t Count) {
  return ToUtf8(Text.substr(0, std::min(Count, Text.size()))).size();
}

std::size_t NumberStop(std::string_view Text) noexcept {
  const char* const Begin = Text.data();
  const char* const End = Begin + Text.size();
  const char* At = Begin;
  while (At != End && *At == ' ') ++At;
  At = SkipSign(At, End);
  const char* const Whole = At;
  At = SkipDigits(At, End);
  bool Missing = At == Whole;
  if (At != End && *At == '.') {
    const char* const Fraction = At + 1;
    At = SkipDigits(Fraction, End);
    Missing = Missing && At == Fraction;
  }
  if (!Missing) At = SkipExponent(At, End, Missing);
  if (!Missing)
    while (At != End && *At == ' ') ++At;
  return At == End && !Missing ? NoPlace : static_cast<std::size_t>(At - Begin);
}

} // namespace unitlib::app
