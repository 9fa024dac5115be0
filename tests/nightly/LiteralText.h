/// Texts of values made the literal way: big integers, then one step after the other as the rules are told.
/// Slow, and without any of the library's shortcuts; what the library shows is compared with it.
#pragma once

#include "unitlib/model/UnitModel.h"

#include <string>
#include <string_view>

namespace unitlib::test {

/// Number text of a value >= 0 in display units; GroupSize 0: no groups.
std::u16string LiteralNumber(double Shown, const TUnit& Unit, int GroupSize);
/// Inches and fraction of a value >= 0 in inches.
std::u16string LiteralInches(double Inches, const TUnit& Unit);
/// Feet, inches and fraction of a value >= 0 in inches.
std::u16string LiteralFeet(double Inches, const TUnit& Unit);
/// The double of a number text whose commas count as nothing, through std::from_chars.
double LiteralValue(std::u16string_view Text);
/// 15 digits through std::to_chars: "1.23456789012345e+03".
std::string LiteralDigits(double Value);

} // namespace unitlib::test
