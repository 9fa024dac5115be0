/// Rounding to a multiple of a step that is given as text, without any error of binary arithmetic.
#pragma once

#include "unitlib/rtl/Decimal.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace unitlib {

/// A number text as the decimal number it stands for: Mantissa x 10^-Scale, exactly, when IsSimple; otherwise
/// the digits are read again from Text by the slow path. The text must outlive this object.
struct TExactNumber {
  /// errors      EConvertError the text is not a number
  explicit TExactNumber(std::u16string_view NumberText);

  std::u16string_view Text;
  double Value = 0.0;         // the nearest double, with its sign
  bool IsSimple = false;      // Mantissa < 2^53, 0 <= Scale <= 19, the text has at most 19 digits
  std::uint64_t Mantissa = 0; // of the absolute value
  int Scale = 0;

private:
  bool ReadSimple(std::u16string_view NumberText) noexcept;
};

/// Nearest integer of a finite value; a half, and what lies within 1e-12 below a half, goes away from zero.
/// errors      ERangeError the integer does not fit 64 bits
std::int64_t RoundClassicToInt64(double Value);

/// Value >= 0 rounded to the nearest multiple of Step (not zero; its sign does not matter), in exact
/// arithmetic with the tie rule of RoundClassicToInt64, then cut to 15 significant digits, correctly rounded.
/// return      nothing when the count of steps does not fit a 64-bit integer
std::optional<TDecimal15> RoundToMultiple(double Value, const TExactNumber& Step);

/// The same for the usual values, in doubles alone: false where their errors could decide, or where the
/// result has more than 15 digits. Otherwise the result is Product x 10^-Step.Scale, Product < 10^15.
bool RoundToMultipleWhenClear(double Value, const TExactNumber& Step, std::uint64_t& Product) noexcept;
/// The same with big integers, whatever the value: the literal second way, which the others are compared
/// with.
std::optional<TDecimal15> RoundToMultipleExact(double Value, const TExactNumber& Step);

/// A length split by a rounding step of Numerator / Denominator.
///   Whole       trunc(r), r being the length rounded to the step
///   StepsPerOne trunc(Denominator / Numerator): steps per whole, 0 for steps above 1
///   Steps       (length - Whole) x StepsPerOne, rounded: the fraction shown behind Whole; 0 or less: none
struct TFractionSplit {
  std::int64_t Whole = 0;
  std::int64_t StepsPerOne = 0;
  std::int64_t Steps = 0;
};

/// Splits Value >= 0. Neither Numerator nor Denominator may be zero.
/// WithSteps   the fraction behind Whole is asked for, too: its steps must fit then
/// errors      ERangeError a part does not fit a 64-bit integer
TFractionSplit SplitByFraction(double Value, const TExactNumber& Numerator, const TExactNumber& Denominator,
                               bool WithSteps = true);

/// The same with big integers: the literal second way.
TFractionSplit SplitByFractionExact(double Value, const TExactNumber& Numerator,
                                    const TExactNumber& Denominator, bool WithSteps = true);
/// The same for steps of 1 / 2^Shift (at most 16), in doubles: false where a tie is so near that they cannot
/// tell, and for values of 10^9 and more. Steps counts 2^-Shift here, and is 0 where nothing is shown.
bool SplitByPowerOf2(double Value, int Shift, std::int64_t& Whole, std::int64_t& Steps) noexcept;

/// trunc(Numerator / Denominator).
/// errors      ERangeError it does not fit a 64-bit integer
std::int64_t TruncQuotient(const TExactNumber& Numerator, const TExactNumber& Denominator);

} // namespace unitlib
