/// Every text the dialogs show by themselves, in one table. A host puts its language in their place through
/// the hook of rtl/UserTexts.h.
#pragma once

#include "unitlib/model/ZELUnitConst.h"

#include <array>
#include <string>
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

struct TUiTextRow {
  TUiText Id;
  std::u16string_view Key;
  std::u16string_view English;
};

// In the order of TUiText. Leading blanks are part of the texts. The two errors have no key: like all errors
// they stay English.
inline constexpr std::array<TUiTextRow, static_cast<size_t>(TUiText::Count)> UiTexts{{
    {TUiText::ProjectUnits, u"dialog.project-units", u"Project Units"},
    {TUiText::Config, u"dialog.config", u" Config: "},
    {TUiText::GridUnits, u"dialog.grid-units", _SUnit},
    {TUiText::GridFormat, u"dialog.grid-format", _SFormate},
    {TUiText::DigitGrouping, u"dialog.digit-grouping", u"Decimal Symbol/Digit Grouping:"},
    {TUiText::Default, u"dialog.default", u"Default"},
    {TUiText::OK, u"dialog.ok", u"OK"},
    {TUiText::Cancel, u"dialog.cancel", u"Cancel"},
    {TUiText::Format, u"dialog.format", u"Format"},
    {TUiText::UseProjectSettings, u"dialog.use-project-settings", u"Use Project Settings"},
    {TUiText::Units, u"dialog.units", u"Units:"},
    {TUiText::Rounding, u"dialog.rounding", u" Rounding:"},
    {TUiText::RoundingIncrement, u"dialog.rounding-increment", u"Rounding Increment:"},
    {TUiText::UnitSymbol, u"dialog.unit-symbol", u"Unit Symbol:"},
    {TUiText::SuppressTrailing0, u"dialog.suppress-trailing-0", u"Suppress trailing 0's"},
    {TUiText::Suppress0Feet, u"dialog.suppress-0-feet", u"Suppress 0 feet"},
    {TUiText::ShowPlus, u"dialog.show-plus", u"Show + for positive values"},
    {TUiText::UseDigitGrouping, u"dialog.use-digit-grouping", u"Use digit grouping"},
    {TUiText::SuppressSpaces, u"dialog.suppress-spaces", u"Suppress spaces"},
    {TUiText::InvalidInput, u"dialog.invalid-input", _SInvaliateInput},
    {TUiText::NoToolkit, u"", u"The dialog cannot be opened: there is no window system."},
    {TUiText::UnknownMeasure, u"", u"The current configuration has no measure with classify code "},
}};

/// The text to show.
/// errors      those of the host's text source
std::u16string UiText(TUiText Id);

} // namespace unitlib
