#include "unitlib/rtl/XmlScan.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <string_view>
#include <system_error>

namespace unitlib {
namespace {

constexpr std::size_t None = std::string_view::npos;

/// The place behind the next End; None when there is none.
std::size_t Behind(std::string_view Text, std::string_view End, std::size_t From) noexcept {
  const std::size_t Found = Text.find(End, From);
  return Found == None ? None : Found + End.size();
}

/// The place behind a comment, a CDATA section or a processing instruction that starts at From; From itself
/// when none of them does.
std::size_t BehindSection(std::string_view Text, std::size_t From) noexcept {
  struct TSection {
    std::string_view Start, End;
  };
  constexpr TSection Sections[] = {{"<!--", "-->"}, {"<![CDATA[", "]]>"}, {"<?", "?>"}};
  for (const TSection& Section : Sections)
    if (Text.substr(From, Section.Start.size()) == Section.Start)
      return Behind(Text, Section.End, From + Section.Start.size());
  return From;
}

/// Characters of a tag that decide where it ends.
constexpr auto IsMark = [] {
  std::array<bool, 256> Result{};
  for (const char C : {'"', '\'', '<', '>'}) Result[static_cast<unsigned char>(C)] = true;
  return Result;
}();

/// The next of them from From on; the end of the text when there is none. With BlankText a tenth of reading a
/// document less.
std::size_t NextMark(std::string_view Text, std::size_t From) noexcept {
  const char* At = Text.data() + From;
  const char* const End = Text.data() + Text.size();
  while (At != End && !IsMark[static_cast<unsigned char>(*At)]) ++At;
  return static_cast<std::size_t>(At - Text.data());
}

/// The place behind a tag or declaration that starts at From: the first ">" that is not quoted and, in a
/// document type declaration, not nested.
std::size_t BehindTag(std::string_view Text, std::size_t From, bool Declaration) noexcept {
  int Depth = 0;
  for (std::size_t I = NextMark(Text, From + 1); I < Text.size(); I = NextMark(Text, I)) {
    const char C = Text[I];
    if (C == '"' || C == '\'') {
      I = Text.find(C, I + 1);
      if (I == None) return None;
      ++I;
    } else if (C == '<' && Declaration) {
      const std::size_t Next = BehindSection(Text, I);
      if (Next == None) return None;
      Depth += Next == I;
      I = Next == I ? I + 1 : Next;
    } else {
      ++I;
      if (C == '>' && Depth-- == 0) return I;
    }
  }
  return None;
}

/// True for a character that XML 1.0 can carry.
constexpr bool IsXmlCharacter(char32_t C) noexcept {
  if (C < U' ') return C == U'\t' || C == U'\n' || C == U'\r';
  return C < 0xD800 || (C > 0xDFFF && C < 0xFFFE) || (C > 0xFFFF && C <= 0x10FFFF);
}

/// The place of the first reference such as "&#0;" in a tag whose character XML cannot carry; None when there
/// is none. The parser would let it through, and a NUL would end the text there: "1&#0;2" would be read as 1.
std::size_t BadReference(std::string_view Tag) noexcept {
  for (std::size_t I = Tag.find("&#"); I != None; I = Tag.find("&#", I + 2)) {
    const bool Hexadecimal = Tag.substr(I + 2, 1) == "x";
    const char* const Begin = Tag.data() + I + (Hexadecimal ? 3 : 2);
    const char* const TagEnd = Tag.data() + Tag.size();
    std::uint32_t Value = 0;
    const auto [End, Error] = std::from_chars(Begin, TagEnd, Value, Hexadecimal ? 16 : 10);
    const bool IsReference = End != Begin && End != TagEnd && *End == ';';
    if (IsReference && (Error != std::errc() || !IsXmlCharacter(Value))) return I;
  }
  return None;
}

/// Overwrites the text from From on, line ends apart, up to the next tag. The place of the tag.
std::size_t BlankText(std::string& Source, std::size_t From) noexcept {
  const std::size_t Tag = std::min(Source.find('<', From), Source.size());
  for (char *At = Source.data() + From, *const End = Source.data() + Tag; At != End; ++At)
    if (*At != '\n') *At = ' ';
  return Tag;
}

} // namespace

TXmlScan BlankTextBetweenTags(std::string& Source) noexcept {
  const std::string_view Text = Source;
  std::size_t Open = 0;
  for (std::size_t I = 0; I < Text.size();) {
    if (Text[I] != '<') {
      I = BlankText(Source, I);
      continue;
    }
    std::size_t Next = BehindSection(Text, I);
    const bool IsSection = Next != I;
    if (!IsSection) {
      const bool Declaration = Text.substr(I, 2) == "<!", Closing = Text.substr(I, 2) == "</";
      Next = BehindTag(Text, I, Declaration);
      const bool Whole = Next != None && Text[Next - 2] == '/';
      if (Closing && Open > 0) --Open;
      if (!Closing && !Declaration && !Whole) ++Open;
    }
    if (Next == None) return {TXmlScan::Unfinished, I};
    if (const std::size_t Bad = BadReference(Text.substr(I, Next - I)); Bad != None && !IsSection)
      return {TXmlScan::BadCharacter, I + Bad};
    I = Next;
  }
  return {Open == 0 ? TXmlScan::Fine : TXmlScan::Unfinished, Text.size()};
}

} // namespace unitlib
