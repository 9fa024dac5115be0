/// Arithmetic of lengths and plain numbers, as typed into a cell. The text goes through the library's
/// expression engine; what is added here is that a length stays a length, in imperial and in metric projects
/// alike:
///   3'6"+2*1'   is 1676.4 mm          2'*3'   is refused          (1+2)*3   is the plain number 9
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace unitlib::takeoff {

struct TAmount {
  double Value = 0;      // lengths in mm
  bool IsLength = false; // false: a plain number
};

/// What the parts of a text stand for.
struct TArithmeticRules {
  bool Lengths = false; // numbers with foot and inch marks are lengths; otherwise they are refused
  double PlainInMm = 0; // a plain number beside a length is one of so many mm (3'6"+2); 0: that is refused
  bool Names = false;   // one name may stand for a length of its own, of which nothing is known
};

/// Value of a text.
/// errors      ERefused it cannot be read, or adds, multiplies or divides what does not go together
TAmount Evaluate(std::u16string_view Text, const TArithmeticRules& Rules);

/// The operands that are neither numbers nor lengths, in the order of the text.
/// errors      ERefused the text cannot be read
std::vector<std::u16string> NamesIn(std::u16string_view Text);

/// Text without the blanks at brackets, which the engine takes for missing operators: "2 * (3)" becomes "2
/// *(3)".
std::u16string WithoutBlanksAtBrackets(std::u16string_view Text);

/// True when a dash may join as well as take away: 5'-6" is five feet six to a builder and four feet six to a
/// calculator, 6-1/2" likewise. With blanks on both sides (5' - 6") it takes away. Expected: the dash form as
/// written.
bool HasAmbiguousDash(std::u16string_view Text) noexcept;

/// True when a comma stands where none separates digits by threes or fours ("1,5").
bool HasMisplacedComma(std::u16string_view Text) noexcept;

/// Longest text that a cell takes; the trees stay shallow.
inline constexpr std::size_t MaxTypedLength = 500;

} // namespace unitlib::takeoff
