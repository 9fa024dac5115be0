/// Text helpers over UTF-16: trimming, ASCII comparison without letter case, UTF-8 at the borders.
#pragma once

#include <cstring>
#include <string>
#include <string_view>

namespace unitlib {

constexpr char16_t FootMark = u'\''; // apostrophe
constexpr char16_t InchMark = u'"';  // double quote

constexpr bool IsDigit(char16_t C) noexcept {
  return C >= u'0' && C <= u'9';
}
/// ASCII white space as a regular expression's \s has it: blank, tab, line feed, vertical tab, form feed,
/// return.
constexpr bool IsSpace(char16_t C) noexcept {
  return C == u' ' || (C >= 0x09 && C <= 0x0D);
}
constexpr char16_t UpperAscii(char16_t C) noexcept {
  return C >= u'a' && C <= u'z' ? static_cast<char16_t>(C - 32) : C;
}

/// Text without leading and trailing characters up to U+0020. The result points into Text.
std::u16string_view TrimView(std::u16string_view Text) noexcept;
std::u16string Trim(std::u16string_view Text);

/// Equality of two texts of the same length that folds the letters A to Z.
bool SameFolded(std::u16string_view A, std::u16string_view B) noexcept;
/// Equality that folds the letters A to Z only, so it answers alike in every locale. Nearly all texts that
/// are equal are so to the letter.
inline bool SameText(std::u16string_view A, std::u16string_view B) noexcept {
  if (A.size() != B.size()) return false;
  return A.empty() || std::memcmp(A.data(), B.data(), A.size() * sizeof(char16_t)) == 0 || SameFolded(A, B);
}
/// Order of two texts under the same folding: negative, 0, positive.
int CompareText(std::u16string_view A, std::u16string_view B) noexcept;
/// True when Text ends with Tail, letters A to Z folded.
inline bool EndsWithText(std::u16string_view Text, std::u16string_view Tail) noexcept {
  if (Tail.empty()) return true;
  if (Text.size() < Tail.size() || UpperAscii(Text.back()) != UpperAscii(Tail.back())) return false;
  return SameText(Text.substr(Text.size() - Tail.size()), Tail);
}

/// The first or last Count characters (all of them when the text is shorter).
std::u16string LeftStr(std::u16string_view Text, int Count);
std::u16string RightStr(std::u16string_view Text, int Count);

/// Text with every occurrence of Old (not empty) replaced by New, case-sensitive, left to right.
std::u16string ReplaceStr(std::u16string_view Text, std::u16string_view Old, std::u16string_view New);

/// UTF-16 to UTF-8. A surrogate without its partner becomes U+FFFD, so the result is always valid UTF-8.
std::string ToUtf8(std::u16string_view Text);
/// UTF-8 to UTF-16. A malformed sequence becomes U+FFFD.
std::u16string FromUtf8(std::string_view Text);
/// True when Text is well-formed UTF-8 (no overlong forms, no surrogates, at most U+10FFFF).
bool IsUtf8(std::string_view Text) noexcept;

} // namespace unitlib
