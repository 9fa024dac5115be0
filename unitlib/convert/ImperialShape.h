/// The accepted shapes of an imperial text and what they hold; the reader below IsFraction.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace unitlib {

/// Sign x (Feet feet + Inches inches + Numerator / Denominator inches).
struct TImperialShape {
  bool Negative = false;
  std::int64_t Feet = 0;
  std::int64_t Inches = 0;
  std::int64_t Numerator = 0;
  std::int64_t Denominator = 1;
};

/// Reads a text of one of the accepted shapes: an optional sign, then
///   D   D'   D"      and, behind feet (D') or alone,   D   D/D   D D/D   with or without inch mark
///   D-D   D-D/D   D-D D/D   without inch mark
/// where D is 1 to 15 digits. White space counts only between two digits, and a denominator must not start
/// with 0. False, and Shape left half-filled, for every other text. No allocation.
bool ReadImperialShape(std::u16string_view Text, TImperialShape& Shape) noexcept;

/// Reads the shape that nearly everybody types, feet, inches and a fraction without a blank too many (5'6 1/2"),
/// at the start of a text: how many characters it takes; 0, and Shape left half-filled, for everything else.
std::size_t ReadUsualShape(std::u16string_view Text, TImperialShape& Shape) noexcept;

/// Length of a shape in inches.
double InchesOf(const TImperialShape& Shape) noexcept;

} // namespace unitlib
