/// The unit model: configurations, their measures, the units of a measure and how each unit is shown.
/// Indices are 0-based positions in the owning list. Objects are created by the settings file reader and
/// freed with their list; nothing points back to a parent.
#pragma once

#include "unitlib/model/MeasureIndex.h"
#include "unitlib/rtl/OwningList.h"

#include <string>
#include <string_view>
#include <vector>

namespace unitlib {

/// One format switch of a unit: whether the user may tick it, and whether it is ticked.
class TCheckBoxSetting {
public:
  bool DefEnable = false;
  bool Enable = false;
  bool DefChecked = false;
  bool Checked = false;
};

/// One choice of the symbol shown behind a value, for example "None", "m" or "SF".
class TUnitSymbol {
public:
  std::u16string Description;
  int OrderIndex = 0; // as written in the file
};

/// One rounding choice of a unit.
class TRound {
public:
  std::u16string Description;
  std::u16string Increment; // rounding step as text: "0.01", "1/16", "6"
  int OrderIndex = 0;
  bool IncrementCanEdit = false;    // the user may type an increment of his own
  bool IncrementCanVisible = false; // the increment is shown for this choice

  /// Assigns Increment as it stands; nothing is checked.
  void SetIncrement(std::u16string_view Value) { Increment = Value; }
};

/// One unit of a measure with its rounding choices, symbols and six format switches.
class TUnit {
public:
  std::u16string Description;
  int OrderIndex = 0;
  int DefRoundIndex = 0;
  int CurRoundIndex = 0;
  int DefUnitSymbolIndex = 0;
  int CurUnitSymbolIndex = 0;
  TOwningList<TRound> RoundContainer;
  TOwningList<TUnitSymbol> UnitSymbolContainer;
  TCheckBoxSetting UseProjectSetting;
  TCheckBoxSetting SuppressTrail0;      // no trailing zeros behind the decimal point
  TCheckBoxSetting Suppress0Feet;       // no feet part when it is 0
  TCheckBoxSetting ShowPlusForPosValue; // "ShowPlusSymbolForPosValue" in the file
  TCheckBoxSetting UseDigitGroup;
  TCheckBoxSetting SuppressSpace;       // no blank behind the foot mark
  std::u16string DefUnitSymbolWhenNone; // symbol to show when the chosen one is "None"
  std::u16string UnitParserClassName;   // registered name of the parser that converts values of this unit
  int UnitIdentifyCode = 0;
  double Precision = 0.0; // numeric increment typed last in the Format dialog; in no file, read by nobody

  TOwningList<TRound>& RoundItems() noexcept { return RoundContainer; }
  TOwningList<TUnitSymbol>& UnitSymbolItems() noexcept { return UnitSymbolContainer; }

  /// The round or symbol at Index; null when Index is outside the list.
  TRound* GetRound(int Index) const noexcept { return RoundContainer.Find(Index); }
  TUnitSymbol* GetUnitSymbol(int Index) const noexcept { return UnitSymbolContainer.Find(Index); }
  TRound* GetCurRound() const noexcept { return GetRound(CurRoundIndex); }
  /// Text of the current symbol; empty when the current index is outside the list.
  const std::u16string& GetCurUnitSymbolDescription() const noexcept;
  std::vector<std::u16string> GetRoundDescriptionArray() const;
  std::vector<std::u16string> GetUnitSymbolDescriptionArray() const;

  /// Makes the first round or symbol with exactly this description current; an unknown one changes nothing.
  void SetCurRound(std::u16string_view RoundDescription);
  void SetCurUnitSymbol(std::u16string_view SymbolDescription);
  /// Switches, current round and current symbol back to their defaults; edited increments stay.
  void RestoreDefault() noexcept;
};

/// One kind of quantity within a configuration: "Area", "Volume", "Length (Basic Information)", ...
class TMeasure {
public:
  std::u16string Description;
  int OrderIndex = 0;
  int DefUnitIndex = 0;
  int CurUnitIndex = 0; // -1: the measure has no current unit
  TOwningList<TUnit> UnitContainer;
  std::u16string ExampleValue;        // a sample value in the base unit, as decimal text
  std::u16string ExampleDisplayValue; // the same as shown; computed by UpdateDispalyValue, in no file
  TClassifyCode ClassifyCode;         // the number every conversion names this measure by

  TOwningList<TUnit>& Items() noexcept { return UnitContainer; }

  /// errors      EListError Index is outside the list
  TUnit* GetUnit(int Index) const { return &UnitContainer.Item(Index); }
  /// errors      EListError the measure has no current unit
  TUnit* GetCurUnit() const { return GetUnit(CurUnitIndex); }
  std::vector<std::u16string> GetUnitDescriptionArray() const;

  /// Lists of measures call it when they change.
  static void NoteListChange() noexcept { NoteMeasureChange(); }

  /// Makes the first unit with exactly this description current; an unknown one changes nothing.
  void SetCurUnit(std::u16string_view UnitDescription);
  /// Restores the unit that is current, then makes the default unit current and restores that one too; every
  /// other unit keeps its settings. An index outside the list restores no unit.
  void RestoreDefault() noexcept;
};

/// One unit system: "US Imperial System", "Standard Metric System", ...
class TConfig {
public:
  std::u16string Description;
  int OrderIndex = 0;
  TOwningList<TMeasure> MeasureContainer;

  /// The measure at position Index, or, by order index, the first whose OrderIndex is Index (null when none
  /// is).
  /// errors      EListError the position is outside the list (only when not looked up by order index)
  TMeasure* Measure(int Index, bool ByOrderIndex) const;
  /// The first measure with this classify code; null when there is none.
  TMeasure* FindMeasure(int ClassifyCode) const noexcept {
    return FIndex.Find(MeasureContainer, ClassifyCode);
  }
  int MeasureCount() const noexcept { return MeasureContainer.Count(); }
  void RestoreDefault() noexcept;

private:
  TMeasureIndex FIndex;
};

/// One way of grouping digits: "123,456,789.00" or "1,2345,6789.00".
class TDigitGroup {
public:
  std::u16string Description;
  int OrderIndex = 0;
  std::u16string DigitGroupParserClassName; // registered name of the class that groups
};

} // namespace unitlib
