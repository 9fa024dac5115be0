/// What storing from the Format dialog may change in a measure, kept to put it back.
#pragma once

#include "unitlib/model/UnitModel.h"

#include <string>

namespace unitlib {

/// Puts the measure back as it was, unless Drop was called.
class TMeasureBackup {
public:
  /// Unit and Round are those about to be changed (or null).
  TMeasureBackup(TMeasure& Measure, TUnit* Unit, TRound* Round);
  TMeasureBackup(const TMeasureBackup&) = delete;
  TMeasureBackup& operator=(const TMeasureBackup&) = delete;
  ~TMeasureBackup();

  void Drop() noexcept { FMeasure = nullptr; }

private:
  struct TUnitState {
    int CurRoundIndex = 0;
    int CurUnitSymbolIndex = 0;
    double Precision = 0;
    TCheckBoxSetting Switches[6];
  };
  void KeepUnit();
  void PutUnitBack() noexcept;

  TMeasure* FMeasure;
  TUnit* FUnit;
  TRound* FRound;
  int FCurUnitIndex;
  std::u16string FExampleDisplayValue;
  std::u16string FIncrement;
  TUnitState FUnitState;
};

} // namespace unitlib
