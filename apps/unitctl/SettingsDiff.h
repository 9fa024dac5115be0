/// What differs between two settings files, in words.
#pragma once

#include "unitlib/model/UnitModel.h"

#include <string>
#include <string_view>
#include <vector>

namespace unitlib::app {

/// Settings as the library has loaded them. Nothing is owned.
struct TLoadedSettings {
  const TOwningList<TConfig>* Systems = nullptr;
  const TOwningList<TDigitGroup>* Groups = nullptr;
  int CurrentSystem = -1;
  int CurrentGroup = 0;
};

struct TDifference {
  std::string Place; // "US Imperial System / Area / Square feet"; empty: the file as a whole
  std::string Text;
};

/// Every difference that a save would write, told from the side of B; systems, measures and units are matched
/// by description, and what is left by their codes. Empty: the settings are the same.
std::vector<TDifference> CompareSettings(const TLoadedSettings& A, const TLoadedSettings& B);

/// How a measure is shown: "Feet and fractional inches, To the nearest 1/16"", or "no unit".
std::string ShownAs(const TMeasure& Measure);

} // namespace unitlib::app
