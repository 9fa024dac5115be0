#include "unitlib/ui/UiTexts.h"

#include "unitlib/model/ZELUnitConst.h"

#include <array>

namespace unitlib {
namespace {

struct TRow {
  TUiText Id;
  std::u16string_view Text;
};

// In the order of TUiText. Leading blanks are part of the texts.
constexpr std::array<TRow, static_cast<size_t>(TUiText::Count)> Texts{{
    {TUiText::ProjectUnits, u"Project Units"},
    {TUiText::Config, u" Config: "},
    {TUiText::GridUnits, _SUnit},
    {TUiText::GridFormat, _SFormate},
    {TUiText::DigitGrouping, u"Decimal Symbol/Digit Grouping:"},
    {TUiText::Default, u"Default"},
    {TUiText::OK, u"OK"},
    {TUiText::Cancel, u"Cancel"},
    {TUiText::Format, u"Format"},
    {TUiText::UseProjectSettings, u"Use Project Settings"},
    {TUiText::Units, u"Units:"},
    {TUiText::Rounding, u" Rounding:"},
    {TUiText::RoundingIncrement, u"Rounding Increment:"},
    {TUiText::UnitSymbol, u"Unit Symbol:"},
    {TUiText::SuppressTrailing0, u"Suppress trailing 0's"},
    {TUiText::Suppress0Feet, u"Suppress 0 feet"},
    {TUiText::ShowPlus, u"Show + for positive values"},
    {TUiText::UseDigitGrouping, u"Use digit grouping"},
    {TUiText::SuppressSpaces, u"Suppress spaces"},
    {TUiText::InvalidInput, _SInvaliateInput},
    {TUiText::NoToolkit, u"The dialog cannot be opened: there is no window system."},
    {TUiText::UnknownMeasure, u"The current configuration has no measure with classify code "},
}};

constexpr bool InOrder() {
  for (size_t I = 0; I < Texts.size(); ++I)
    if (static_cast<size_t>(Texts[I].Id) != I) return false;
  return true;
}
static_assert(InOrder());

} // namespace

std::u16string_view UiText(TUiText Id) noexcept {
  return Texts[static_cast<size_t>(Id)].Text;
}

} // namespace unitlib
