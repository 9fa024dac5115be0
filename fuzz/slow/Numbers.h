/// Numbers and their texts for the oracles: exact fractions, and the C library where a double is needed.
#pragma once

#include "fuzz/slow/Exact.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace unitlib::fuzz::slow {

/// What a number text says.
struct TRead {
  bool Ok = false;            // it is a number, and within the range of doubles
  bool AllDigitsZero = false; // "0", "-0.00", "0e5"
  double Value = 0;           // the nearest double
  TExact Exact;               // 0 below the smallest double
};

TRead ReadNumber(std::u16string_view Text);
bool IsNumeric(std::u16string_view Text);
bool IsInt64(std::u16string_view Text);

inline double ToDouble(const TExact& Exact) {
  return Exact.ToDouble();
}
/// errors      aborts for what is not finite
TExact ExactOf(double Value);
TExact Absolute(const TExact& Value);

/// General text: 15 significant digits, exponent form outside 0.00001 .. 999999999999999.
std::u16string GeneralText(double Value);
std::u16string GeneralText(const TExact& Value);
/// The same digits, never with an exponent.
std::u16string PlainText(double Value);
std::u16string PlainText(const TExact& Value);

/// Nearest whole number, halves away from zero; what lies within 1e-12 of a half counts as the half.
TExact RoundClassic(const TExact& Value);

std::u16string Wide(const std::string& Ascii);
std::u16string Trimmed(std::u16string_view Text);
char16_t Lower(char16_t C);
std::u16string Lower(std::u16string_view Text);
/// Letters A to Z folded.
bool EndsWith(std::u16string_view Text, std::u16string_view Tail);

} // namespace unitlib::fuzz::slow
