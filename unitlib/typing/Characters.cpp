#include "unitlib/typing/Characters.h"

#include "unitlib/rtl/Text.h"

namespace unitlib::typing {
namespace {

constexpr bool IsOneOf(std::u16string_view Set, char16_t C) noexcept {
  return Set.find(C) != std::u16string_view::npos;
}

/// Digits of other scripts, which are not read: Arabic, Persian, Devanagari, Bengali, Thai.
bool IsOtherDigit(char16_t C) noexcept {
  for (const char16_t Zero : {u'\u0660', u'\u06F0', u'\u0966', u'\u09E6', u'\u0E50'})
    if (C >= Zero && C < Zero + 10) return true;
  return false;
}

} // namespace

bool IsBlank(char16_t C) noexcept {
  return C == u' ' || IsGroupBlank(C) || (C >= 0x2000 && C <= 0x200A) || C == 0x205F || C == 0x3000;
}

bool IsGroupBlank(char16_t C) noexcept {
  return C == 0x00A0 || C == 0x2007 || C == 0x2009 || C == 0x202F;
}

bool IsFootMark(char16_t C) noexcept {
  // apostrophe, prime, right and left quotes, acute, grave, modifier prime and apostrophe, full width
  return IsOneOf(u"'\u2032\u2019\u2018\u00B4`\u02B9\u02BC\uFF07", C);
}

bool IsInchMark(char16_t C) noexcept {
  // quote, double prime, right and left quotes, modifier double prime, double acute, full width
  return IsOneOf(u"\"\u2033\u201D\u201C\u02BA\u02DD\uFF02", C);
}

bool IsDash(char16_t C) noexcept {
  // hyphen-minus, hyphen, no-break hyphen, figure dash, en dash, em dash, small and full-width hyphen
  return IsOneOf(u"-\u2010\u2011\u2012\u2013\u2014\uFE63\uFF0D", C);
}

bool IsLetter(char16_t C) noexcept {
  if (C < 0x80) return UpperAscii(C) >= u'A' && UpperAscii(C) <= u'Z';
  if (C >= 0x2000 && C <= 0x2BFF) return false; // punctuation, superscripts, currency, arrows, mathematics
  if (C >= 0x3000 && C <= 0x303F) return false; // ideographic blanks and brackets
  if (C >= 0x02B0 && C <= 0x036F) return false; // modifiers that look like marks, accents by themselves
  if (IsOtherDigit(C)) return false;
  if (C >= 0xD800 && C <= 0xF8FF) return false; // halves of pairs, private use
  if (C >= 0xFE00) return UpperAscii(PlainWidth(C)) >= u'A' && UpperAscii(PlainWidth(C)) <= u'Z';
  return C >= 0xC0 && C != 0xD7 && C != 0xF7 && !IsFootMark(C) &&
         !IsInchMark(C); // no times, no division sign
}

char16_t PlainWidth(char16_t C) noexcept {
  return C >= 0xFF01 && C <= 0xFF5E ? static_cast<char16_t>(C - 0xFF01 + u'!') : C;
}

char16_t PlainLetter(char16_t C) noexcept {
  if (C == 0x00B2) return u'2';
  if (C == 0x00B3) return u'3';
  const char16_t Plain = PlainWidth(C);
  if (Plain >= u'A' && Plain <= u'Z') return static_cast<char16_t>(Plain + 32);
  if (Plain >= 0xC0 && Plain <= 0xDE && Plain != 0xD7) return static_cast<char16_t>(Plain + 32); // È, Ü, ...
  return Plain;
}

TVulgar VulgarFraction(char16_t C) noexcept {
  if (C >= 0x00BC && C <= 0x00BE) return {C == 0x00BE ? 3 : 1, C == 0x00BD ? 2 : 4};
  constexpr TVulgar Row[] = {{1, 7}, {1, 9}, {1, 10}, {1, 3}, {2, 3}, {1, 5}, {2, 5}, {3, 5},
                             {4, 5}, {1, 6}, {5, 6},  {1, 8}, {3, 8}, {5, 8}, {7, 8}}; // U+2150 to U+215E
  if (C >= 0x2150 && C <= 0x215E) return Row[C - 0x2150];
  return {};
}

int SuperscriptDigit(char16_t C) noexcept {
  if (C == 0x00B9) return 1;
  if (C == 0x00B2 || C == 0x00B3) return C - 0x00B0;
  return C == 0x2070 || (C >= 0x2074 && C <= 0x2079) ? C - 0x2070 : -1;
}

int SubscriptDigit(char16_t C) noexcept {
  return C >= 0x2080 && C <= 0x2089 ? C - 0x2080 : -1;
}

} // namespace unitlib::typing
