/// One line of a take-off.
#pragma once

#include <cstdint>
#include <string>

namespace unitlib::takeoff {

struct TItem {
  std::int64_t Id = 0; // key in the project file
  std::u16string Name;
  int Measure = 0;        // classify code; a file may hold one that the settings do not know
  double Value = 0;       // in the measure's base unit (mm, mm2, mm3, kg, ...); NaN: the file holds no number
  std::u16string Typed;   // the text that Value was typed as; empty: not typed (imported)
  std::u16string TypedIn; // description of the unit that was current then
  std::u16string Elevation; // stored form: lengths in metres, at most one name ("L1+1.524")
};

} // namespace unitlib::takeoff
