/// What the characters of a typed text stand for, beyond ASCII.
#pragma once

#include <string_view>

namespace unitlib::typing {

/// Blanks of all widths, no-break and ideographic ones too; no line break, no tab.
bool IsBlank(char16_t C) noexcept;
/// A blank that typographers put between groups of digits: no-break, thin, narrow, figure.
bool IsGroupBlank(char16_t C) noexcept;
/// Apostrophes, primes and single quotation marks that are typed for feet, and their double ones for inches.
bool IsFootMark(char16_t C) noexcept;
bool IsInchMark(char16_t C) noexcept;
/// Hyphens and dashes. The minus sign of mathematics is none.
bool IsDash(char16_t C) noexcept;
inline constexpr char16_t MinusSign = 0x2212;
inline constexpr char16_t EmDash = 0x2014;
inline constexpr char16_t FractionSlash = 0x2044;

/// A letter of any script: what a word or a name may begin with.
bool IsLetter(char16_t C) noexcept;
/// The character as the unit tables have it: lower case, superscripts as digits, full-width forms as ASCII.
char16_t PlainLetter(char16_t C) noexcept;
/// Full-width forms as ASCII; everything else as it is.
char16_t PlainWidth(char16_t C) noexcept;

/// A fraction in one character: ½.
struct TVulgar {
  int Numerator = 0; // 0: the character is none
  int Denominator = 1;
};
TVulgar VulgarFraction(char16_t C) noexcept;
/// Value of a superscript or subscript digit; -1 for another character.
int SuperscriptDigit(char16_t C) noexcept;
int SubscriptDigit(char16_t C) noexcept;

} // namespace unitlib::typing
