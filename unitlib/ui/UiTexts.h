/// Every text the dialogs show by themselves, in one table.
#pragma once

#include <string_view>

namespace unitlib {

enum class TUiText {
  ProjectUnits,  // caption of the Project Units dialog
  Config,        // label of the configuration list
  GridUnits,     // header of the measures
  GridFormat,    // header of their formats
  DigitGrouping, // label of the digit group list
  Default,       // button that restores the defaults
  OK,
  Cancel,
  Format, // caption of the Format dialog
  UseProjectSettings,
  Units, // label of the unit list
  Rounding,
  RoundingIncrement,
  UnitSymbol,
  SuppressTrailing0,
  Suppress0Feet,
  ShowPlus,
  UseDigitGrouping,
  SuppressSpaces,
  InvalidInput,   // the prompt for a bad increment
  NoToolkit,      // error: no window system to open a dialog in
  UnknownMeasure, // error: Format dialog for a classify code the configuration does not have
  Count
};

std::u16string_view UiText(TUiText Id) noexcept;

} // namespace unitlib
