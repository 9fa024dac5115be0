/// The settings as JSON, for scripts.
#pragma once

#include "unitlib/model/UnitModel.h"

#include <string>

namespace unitlib::app {

/// All systems with their measures and units, and the digit groupings of the loaded settings. Examples must
/// have been computed for the systems that are to have them. ChosenSystem      position written as
/// "currentSystem"; null when it is outside the list
std::string SettingsAsJson(const std::string& Path, int ChosenSystem);

/// One measure of a system, in the same form.
std::string MeasureAsJson(const TConfig& System, const TMeasure& Measure);

} // namespace unitlib::app
