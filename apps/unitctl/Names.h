/// Names on the command line: by description or number; an unknown one is refused with the nearest known one.
#pragma once

#include "unitlib/model/UnitModel.h"
#include "unitlib/model/ZELUnitMgr.h"

#include <string>
#include <string_view>
#include <vector>

namespace unitlib::app {

/// One of the things that a name may stand for.
struct TKnownName {
  int Number = 0;
  std::u16string Description;
};

/// Position of the thing that Name stands for: a whole number stands for the first thing with that number,
/// anything else for the first with exactly this description, else for the first when letters A to Z are
/// folded. Kind        "unit", for the message errors      ERefused nothing is known by this name; the
/// message tells the nearest
int FindName(const std::string& Kind, std::string_view Name, const std::vector<TKnownName>& Known,
             const std::string& Where = {});

/// Position of a configuration; number: its position.
int FindSystem(std::string_view Name);
/// Position of a digit grouping; number: its position.
int FindDigitGroup(std::string_view Name);
/// A measure of a configuration; number: its classify code; "#N": position N.
TMeasure& FindMeasure(const TConfig& Config, std::string_view Name);
/// Position of a unit; number: its unit code.
int FindUnit(const TMeasure& Measure, std::string_view Name);
/// Position of a rounding or a symbol of a unit; number: the position.
int FindRound(const TUnit& Unit, std::string_view Name);
int FindSymbol(const TUnit& Unit, std::string_view Name);

/// One of the six format switches of a unit and its name on the command line and in the settings file.
struct TSwitch {
  std::string_view Name;
  TCheckBoxSetting TUnit::*Setting;
};
const std::vector<TSwitch>& Switches();
/// errors      ERefused no switch has this name
const TSwitch& FindSwitch(std::string_view Name);

/// The current configuration's measure that conversions with this name go to.
/// errors      ERefused unknown; hidden behind another measure of the same classify code; without a current
/// unit;
///             its unit names a parser class that does not exist
TMeasure& FindConvertible(std::string_view Name);
/// The same test for a measure found before.
void RequireConvertible(TMeasure& Measure);

} // namespace unitlib::app
