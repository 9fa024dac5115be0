/// Numbers to text and back: the one place where that happens, "." always, no locale anywhere.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace unitlib {

/// Result of reading a number text.
///   Ok          the text is a number within the range of a double
///   IsZero      every digit of the text is 0 (so "1e-400", whose Value is 0 too, is told apart from "0")
struct TNumberText {
  bool Ok = false;
  bool IsZero = false;
  double Value = 0.0;
};

/// Reads a number text: blanks (U+0020) around it, one sign with no blank behind it, digits with an optional
/// "." (digits needed on one side at least), an optional exponent with digits. Nothing else is a number: no
/// "inf", "nan", hexadecimal, commas or tabs; text beyond the range of a double ("1e400") is none either.
TNumberText ReadNumber(std::u16string_view Text);
/// The same for a text in UTF-8.
TNumberText ReadUtf8Number(std::string_view Text);

/// The same after every "," has been taken out of the text.
TNumberText ReadNumberWithCommas(std::u16string_view Text);

/// The number of a text.
/// errors      EConvertError the text is not a number (see ReadNumber)
double StrToFloat(std::u16string_view Text);
/// The same without the error: false, and Value left alone, when the text is not a number.
bool TryStrToFloat(std::u16string_view Text, double& Value);
/// True when the text is a number (see ReadNumber).
bool IsNumeric(std::u16string_view Text);

/// Reads a 64-bit integer: leading blanks, an optional sign, decimal digits; false when it is none or out of
/// range.
bool TryStrToInt64(std::u16string_view Text, std::int64_t& Value) noexcept;
bool IsInt64(std::u16string_view Text) noexcept;
/// The same for 32 bits.
bool TryStrToInt(std::u16string_view Text, int& Value) noexcept;
bool IsInteger(std::u16string_view Text) noexcept;

/// Shortest general text of a value with at most 15 significant digits, correctly rounded:
///   FloatToStr(0.1 + 0.2) == u"0.3", FloatToStr(1.5e-7) == u"1.5E-7", FloatToStr(1e15) == u"1E15"
/// Fixed form from 0.00001 up to fewer than 16 digits before the point; zero of either sign is "0".
/// errors      ERangeError the value is not finite
std::u16string FloatToStr(double Value);

/// Appends that text.
void AppendFloat(std::u16string& Out, double Value);

/// The same digits without an exponent: 1E20 gives "100000000000000000000", 1.5E-7 gives "0.00000015".
/// errors      ERangeError the value is not finite
std::u16string FloatToPlainStr(double Value);

/// A value with a fixed count of decimals (0 to 15; the nearer end for others), correctly rounded:
/// FixedToStr(1.125, 5) == u"1.12500". errors      ERangeError the value is not finite
std::u16string FixedToStr(double Value, int Decimals);

std::u16string IntToStr(std::int64_t Value);

/// True when A and B differ by at most Epsilon.
bool SameValue(double A, double B, double Epsilon) noexcept;

} // namespace unitlib
