/// The factory defaults as constant tables. The writer, the tests and the documentation all walk these rows.
#pragma once

#include <array>
#include <span>
#include <string_view>

namespace unitlib::defaults {

struct TRoundRow {
  std::u16string_view Description;
  std::u16string_view Increment;
  bool CanEdit;
  bool CanVisible;
};

/// Which of the two sets of format switches a unit starts with.
enum class TFormatProfile { Fractional, Decimal, DecimalGrouped };

struct TUnitRow {
  std::u16string_view Description;
  int IdentifyCode;
  std::u16string_view SymbolWhenNone;
  std::u16string_view ParserClassName;
  std::span<const TRoundRow> Rounds;
  int DefRound; // position in Rounds; for the units without rounds a position in an empty list, kept on
                // purpose
  std::span<const std::u16string_view> Symbols;
  TFormatProfile Profile;
};

struct TMeasureRow {
  std::u16string_view Description;
  int ClassifyCode;
  std::u16string_view ExampleValue;
  std::array<int, 4> DefUnit; // by configuration; -1: none
  std::span<const TUnitRow> Units;
};

struct TDigitGroupRow {
  std::u16string_view Description;
  std::u16string_view ParserClassName;
};

struct TFormatState {
  std::u16string_view Name;
  bool Enable;
  bool Checked;
};

extern const std::array<std::u16string_view, 4> Configs;
extern const std::array<TMeasureRow, 9> Measures;
extern const std::array<TDigitGroupRow, 2> DigitGroups;

/// errors      EListError there is no such row
const TMeasureRow& MeasureRow(int MeasureIndex);
const TUnitRow& UnitRow(int MeasureIndex, int OrderIndex);

/// Position of the default unit in a configuration; -1 for none and for a configuration that is not in the
/// table.
int DefaultUnit(const TMeasureRow& Measure, int ConfigIndex) noexcept;

/// The six format switches of a unit, in the order of the file.
std::array<TFormatState, 6> FormatStates(const TUnitRow& Unit) noexcept;

} // namespace unitlib::defaults
