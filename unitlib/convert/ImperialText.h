/// Imperial length texts: feet, inches and inch fractions as users type them, recognised and read.
///   5'6 1/2"   5' 6   6 1/2"   3/4"   5-6   5-6 3/4   12   -3/4   2.5'
/// Digits and white space are ASCII; a digit run of more than 15 digits is never imperial.
#pragma once

#include <string>
#include <string_view>

namespace unitlib {

/// True when the text ends with the foot mark or with the inch mark.
bool IsEndWithSymbol(std::u16string_view Text) noexcept;

/// The text with its white space normalised: every double blank between two digits becomes one blank, all
/// other white space goes: "5 ' 6  1 / 2" reads as "5'6 1/2".
std::u16string GetIdentifiableForm(std::u16string_view Text);

/// True when the normalised text has one of the accepted shapes: an optional sign, then
///   a number with or without mark; feet (5') and or inches (6, 3/4, 6 3/4), with or without inch mark;
///   feet by a dash and inches without inch mark (5-6, 5-6 3/4). A denominator that starts with 0 is refused.
bool IsFraction(std::u16string_view Text);

/// True when the text is exactly in standard form: sign, feet, foot mark, inches, blank, fraction, inch mark.
bool IsStandardFormat(std::u16string_view Text);

/// The text rewritten into standard form: 6" becomes 0'6 0/1", "-3/4" becomes -0'0 3/4". For a text that
/// IsFraction refuses the result means nothing.
std::u16string GetFractionStandardFormat(std::u16string_view Text);

/// Length in inches; 0 when the text cannot be read, when a number does not fit 64 bits and for a denominator
/// 0.
///   GetInchNumByFraction(u"5'6 1/2\"") == 66.5
double GetInchNumByFraction(std::u16string_view Text);

/// True when the text is an imperial length: IsFraction, or a number of any form (2.5) with a mark behind it.
/// ExcludeIntegers     a plain 64-bit integer is then none
bool IsImperialNum(std::u16string_view Text, bool ExcludeIntegers);

/// True when the text is a number or an imperial length.
bool IsANum(std::u16string_view Text);

/// An arithmetic text with each imperial number in it replaced by the plain number it stands for; everything
/// else stays.
///   ReplaceImperialNumbers(u"3'6\"+2", 0, 1000) == u"1066.8+2"
/// Mode        2: the numbers stand for feet; otherwise for metres
/// Factor      each number is multiplied by it
/// Never fails: what is not recognised stays as it was.
std::u16string ReplaceImperialNumbers(std::u16string_view Text, int Mode, double Factor);

} // namespace unitlib
