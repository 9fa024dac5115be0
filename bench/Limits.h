/// The limits: what each operation costs when a function is written for this one shape and nothing else,
/// with integers, into a string of its own. No settings, no other unit, no errors.
#pragma once

#include <string>
#include <string_view>

namespace unitlib::bench {

/// mm to "1,234.568 m".
std::u16string LimitMetres(double Millimetres);
/// mm to 5' 6 1/2" in sixteenths.
std::u16string LimitFeet(double Millimetres);
/// "1,234.568 m" to mm.
double LimitReadMetres(std::u16string_view Text);
/// 5'6 1/2" to mm; negative where the text has not this shape.
double LimitReadFeet(std::u16string_view Text);
/// Whether a text is made of the characters of a length only; each is looked at once.
bool LimitIsLength(std::u16string_view Text);
/// Every length of this shape in an expression replaced by metres.
std::u16string LimitImperialNumbers(std::u16string_view Text);
/// Value of an expression of numbers, + - * / and brackets.
double LimitEvaluate(std::u16string_view Text);

} // namespace unitlib::bench
