/// Decimal numbers of at most 15 significant digits: what every displayed number is made of.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace unitlib {

/// Mantissa x 10^Exponent; the mantissa has at most 15 digits and no trailing zero (0 for zero). Never
/// negative.
struct TDecimal15 {
  std::uint64_t Mantissa = 0;
  int Exponent = 0;
};

/// The 15 significant digits of a finite value >= 0, correctly rounded (a tie goes to the even digit).
TDecimal15 ToDecimal15(double Value);

/// What the text of those digits is read back as. False for values below 1e-5 or from 1e15 on, and where the
/// quick way cannot tell.
bool CutTo15Digits(double Value, double& Cut) noexcept;

/// Digits x 10^Exponent, rounded to 15 significant digits (a tie goes to the even digit).
TDecimal15 ToDecimal15(std::uint64_t Digits, int Exponent) noexcept;

/// The same for a run of decimal digits of any length.
TDecimal15 ToDecimal15(std::string_view Digits, int Exponent);

/// The text of a decimal number without an exponent: "0.00000015", "2.5", "100000000000000000000". Kept on
/// the stack for all but very large and very small numbers.
class TPlainText {
public:
  TPlainText(TDecimal15 Value, bool Negative);
  TPlainText(const TPlainText&) = delete;
  TPlainText& operator=(const TPlainText&) = delete;
  std::u16string_view View() const noexcept { return FView; }
  /// Digits behind the point.
  int Decimals() const noexcept { return FDecimals; }

private:
  char16_t FShort[48];
  std::u16string FLong;
  std::u16string_view FView;
  int FDecimals;
};

/// Appends Whole x 10^-Scale: Whole < 10^15, Scale from 0 to 22; digits before the point in groups of
/// GroupSize (3 or 4; 0: none) with commas between, trailing zeros behind the point only as far as MinDecimals
/// asks. What TPlainText, grouping and padding make in three steps, 40 ns faster.
void AppendFixed(std::u16string& Out, std::uint64_t Whole, int Scale, int MinDecimals, int GroupSize);

/// Appends the number without an exponent.
void AppendPlain(std::u16string& Out, TDecimal15 Value);

/// Appends the general form: fixed from 0.00001 up to 15 digits before the point, otherwise "1.5E-7", "1E15".
void AppendGeneral(std::u16string& Out, TDecimal15 Value);

/// Writes a whole number to Out (room for 20 characters) and returns its end.
char16_t* WriteInteger(char16_t* Out, std::uint64_t Value) noexcept;
/// Appends a whole number in decimal.
void AppendInteger(std::u16string& Out, std::int64_t Value);

} // namespace unitlib
