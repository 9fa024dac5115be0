#include "apps/unitctl/FactoryRows.h"

#include "apps/unitctl/Names.h"
#include "unitlib/rtl/Text.h"

#include <algorithm>

namespace unitlib::app {
namespace {

using namespace defaults;

template <class TMatch> const TUnitRow* FindUnitRow(TMatch Match) {
  for (const TMeasureRow& Measure : Measures)
    for (const TUnitRow& Row : Measure.Units)
      if (Match(Row)) return &Row;
  return nullptr;
}

template <class TMatch> const TMeasureRow* FindMeasureRow(TMatch Match) {
  const auto Found = std::find_if(Measures.begin(), Measures.end(), Match);
  return Found == Measures.end() ? nullptr : &*Found;
}

constexpr int MetricSystem = 2;

int SystemIndex(std::u16string_view Description) {
  const auto Found = std::find(Configs.begin(), Configs.end(), Description);
  return Found == Configs.end() ? MetricSystem : static_cast<int>(Found - Configs.begin());
}

void AddFactoryUnit(const TUnitRow& Row, int OrderIndex, TMeasure& Measure) {
  TUnit& Unit = Measure.UnitContainer.Add();
  Unit.Description = Row.Description;
  Unit.OrderIndex = OrderIndex;
  Unit.UnitIdentifyCode = Row.IdentifyCode;
  Unit.UnitParserClassName = Row.ParserClassName;
  Unit.DefUnitSymbolWhenNone = Row.SymbolWhenNone;
  Unit.DefRoundIndex = Unit.CurRoundIndex = Row.DefRound;
  AddFactoryRounds(Row, Unit);
  AddFactorySymbols(Row, Unit);
  SetFactorySwitches(Row, Unit);
}

} // namespace

const TUnitRow* SameFactoryUnit(const TUnit& Unit) {
  return FindUnitRow([&](const TUnitRow& Row) {
    return Row.IdentifyCode == Unit.UnitIdentifyCode && Row.Description == Unit.Description;
  });
}

const TUnitRow* FactoryUnit(const TUnit& Unit) {
  if (const TUnitRow* Row = SameFactoryUnit(Unit)) return Row;
  if (const TUnitRow* Row = FindUnitRow([&](const TUnitRow& R) { return R.Description == Unit.Description; }))
    return Row;
  if (const TUnitRow* Row = FindUnitRow(
          [&](const TUnitRow& R) { return SameText(R.ParserClassName, Unit.UnitParserClassName); }))
    return Row;
  return FindUnitRow([&](const TUnitRow& R) { return R.IdentifyCode == Unit.UnitIdentifyCode; });
}

const TMeasureRow* FactoryMeasure(const TMeasure& Measure) {
  if (const TMeasureRow* Row = FindMeasureRow([&](const TMeasureRow& R) {
        return R.ClassifyCode == Measure.ClassifyCode && R.Description == Measure.Description;
      }))
    return Row;
  if (const TMeasureRow* Row =
          FindMeasureRow([&](const TMeasureRow& R) { return R.Description == Measure.Description; }))
    return Row;
  return FindMeasureRow([&](const TMeasureRow& R) { return R.ClassifyCode == Measure.ClassifyCode; });
}

bool IsFactoryTwin(const TMeasure& Measure) {
  const TMeasureRow& Twin = Measures.back();
  if (Measure.ClassifyCode != Twin.ClassifyCode || Measure.Description != Twin.Description) return false;
  // GCC 12 breaks down over a lambda within a lambda here, with sanitizers on.
  const auto HasRow = [&Twin](int Code) {
    for (const TUnitRow& Row : Twin.Units)
      if (Row.IdentifyCode == Code) return true;
    return false;
  };
  for (const auto& Unit : Measure.UnitContainer)
    if (!HasRow(Unit->UnitIdentifyCode)) return false;
  return true;
}

void AddFactoryRounds(const TUnitRow& Row, TUnit& Unit) {
  for (const TRoundRow& RoundRow : Row.Rounds) {
    const int Position = Unit.RoundContainer.Count();
    TRound& Round = Unit.RoundContainer.Add();
    Round.Description = RoundRow.Description;
    Round.Increment = RoundRow.Increment;
    Round.IncrementCanEdit = RoundRow.CanEdit;
    Round.IncrementCanVisible = RoundRow.CanVisible;
    Round.OrderIndex = Position;
  }
}

void AddFactorySymbols(const TUnitRow& Row, TUnit& Unit) {
  for (const std::u16string_view Description : Row.Symbols) {
    const int Position = Unit.UnitSymbolContainer.Count();
    TUnitSymbol& Symbol = Unit.UnitSymbolContainer.Add();
    Symbol.Description = Description;
    Symbol.OrderIndex = Position;
  }
}

void AddFactoryUnits(const TMeasureRow& Row, TMeasure& Measure) {
  int OrderIndex = 0;
  for (const TUnitRow& Unit : Row.Units) AddFactoryUnit(Unit, OrderIndex++, Measure);
}

void AddFactoryMeasures(TConfig& System) {
  for (const TMeasureRow& Row : Measures) {
    const int Position = System.MeasureContainer.Count();
    TMeasure& Measure = System.MeasureContainer.Add();
    Measure.Description = Row.Description;
    Measure.OrderIndex = Position;
    Measure.ClassifyCode = Row.ClassifyCode;
    Measure.ExampleValue = Row.ExampleValue;
    Measure.DefUnitIndex = Measure.CurUnitIndex = DefaultUnit(Row, SystemIndex(System.Description));
    AddFactoryUnits(Row, Measure);
  }
}

void AddFactoryGroups(TOwningList<TDigitGroup>& Groups) {
  for (const TDigitGroupRow& Row : DigitGroups) {
    const int Position = Groups.Count();
    TDigitGroup& Group = Groups.Add();
    Group.Description = Row.Description;
    Group.OrderIndex = Position;
    Group.DigitGroupParserClassName = Row.ParserClassName;
  }
}

std::u16string FactoryIncrement(std::u16string_view Description) {
  for (const TMeasureRow& Measure : Measures)
    for (const TUnitRow& Unit : Measure.Units)
      for (const TRoundRow& Round : Unit.Rounds)
        if (Round.Description == Description) return std::u16string(Round.Increment);
  return {};
}

void SetFactorySwitches(const TUnitRow& Row, TUnit& Unit) {
  for (const TFormatState& State : FormatStates(Row))
    for (const TSwitch& Switch : Switches())
      if (FromUtf8(Switch.Name) == State.Name)
        Unit.*Switch.Setting = {State.Enable, State.Enable, State.Checked, State.Checked};
}

} // namespace unitlib::app
