/// One number as typed: digits, points, commas and blanks between groups.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace unitlib::typing {

struct TDigitRun {
  std::u16string Text; // digits with at most one point; empty when the run is refused
  bool Grouped = false;
  bool DecimalComma = false;            // its comma is the decimal mark
  bool Ambiguous = false;               // refused because it can be read in two ways
  std::u16string Reason;                // why it is refused
  std::vector<std::u16string> Readings; // what could be meant, digits with a point
};

/// Reads a run of digits, points and commas (blanks taken out already).
/// GroupsOfFour    the settings show groups of four digits, so that 1,2345 may be one
TDigitRun ReadDigitRun(std::u16string_view Run, bool DecimalComma, bool GroupsOfFour);

} // namespace unitlib::typing
