/// The measures of the current settings as this program offers them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace unitlib::takeoff {

struct TMeasureChoice {
  int Code = 0;        // classify code
  std::u16string Name; // its description, with the code behind it where two are alike
};

/// Every measure that values can be shown and typed in: the first of each classify code, when it has a
/// current unit whose parser exists. Empty while no settings are loaded.
std::vector<TMeasureChoice> UsableMeasures();

/// Why values of a measure cannot be shown or typed; empty when they can.
std::u16string MeasureProblem(int Code);

/// Name of a measure for the user, of an unknown one too: u"measure 42".
std::u16string MeasureName(int Code);

/// Description of the measure's current unit; empty when there is none.
std::u16string CurrentUnitName(int Code);

/// Code of a usable measure from its name or its code as text.
/// errors      ERefused there is none
int FindMeasure(std::u16string_view Text);

/// True for the measures whose values are lengths in mm: their cells take feet, inches and length arithmetic.
bool IsLength(int Code) noexcept;

/// True when values of both measures are in the same base unit, so that a value keeps its meaning under
/// either.
bool SameBaseUnit(int CodeA, int CodeB) noexcept;

} // namespace unitlib::takeoff
