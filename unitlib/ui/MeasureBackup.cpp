#include "unitlib/ui/MeasureBackup.h"

#include <utility>

namespace unitlib {
namespace {

constexpr TCheckBoxSetting TUnit::*Switches[6] = {&TUnit::UseProjectSetting, &TUnit::SuppressTrail0,
                                                  &TUnit::Suppress0Feet,     &TUnit::ShowPlusForPosValue,
                                                  &TUnit::UseDigitGroup,     &TUnit::SuppressSpace};

} // namespace

TMeasureBackup::TMeasureBackup(TMeasure& Measure, TUnit* Unit, TRound* Round)
    : FMeasure(&Measure), FUnit(Unit), FRound(Round), FCurUnitIndex(Measure.CurUnitIndex),
      FExampleDisplayValue(Measure.ExampleDisplayValue) {
  if (FUnit) KeepUnit();
  if (FRound) FIncrement = FRound->Increment;
}

TMeasureBackup::~TMeasureBackup() {
  if (!FMeasure) return;
  FMeasure->CurUnitIndex = FCurUnitIndex;
  FMeasure->ExampleDisplayValue = std::move(FExampleDisplayValue);
  if (FUnit) PutUnitBack();
  if (FRound) FRound->Increment = std::move(FIncrement);
}

void TMeasureBackup::KeepUnit() {
  FUnitState.CurRoundIndex = FUnit->CurRoundIndex;
  FUnitState.CurUnitSymbolIndex = FUnit->CurUnitSymbolIndex;
  FUnitState.Precision = FUnit->Precision;
  for (int I = 0; I < 6; ++I) FUnitState.Switches[I] = FUnit->*Switches[I];
}

void TMeasureBackup::PutUnitBack() noexcept {
  FUnit->CurRoundIndex = FUnitState.CurRoundIndex;
  FUnit->CurUnitSymbolIndex = FUnitState.CurUnitSymbolIndex;
  FUnit->Precision = FUnitState.Precision;
  for (int I = 0; I < 6; ++I) FUnit->*Switches[I] = FUnitState.Switches[I];
}

} // namespace unitlib
