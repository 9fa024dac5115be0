/// From positions, as the C interface names items of the settings, to the items.
#pragma once

#include "unitlib/model/UnitModel.h"
#include "unitlib/model/ZELUnitConst.h"

#include <cstdint>

namespace unitlib::capi {

/// errors of all    EListError nothing is loaded, or a position is outside its list; TFailure an unknown code
TConfigueType RequireConfigType(int32_t ConfigType);
TConfig& ConfigAt(int32_t Config);                            // or UL_CURRENT
TMeasure& MeasureAt(int32_t Config, int32_t Measure);         // a position
TUnit& UnitAt(int32_t Config, int32_t Measure, int32_t Unit); // or UL_CURRENT
TRound& RoundAt(TUnit& Unit, int32_t Round);                  // or UL_CURRENT
TUnitSymbol& SymbolAt(TUnit& Unit, int32_t Symbol);           // or UL_CURRENT
TCheckBoxSetting& SwitchAt(TUnit& Unit, int32_t Which);       // UL_USE_PROJECT_SETTING, ...
TDigitGroup& DigitGroupAt(int32_t Group);                     // or UL_CURRENT

/// The current unit of the measure with this classify code in the current configuration.
/// errors      TFailure there is no such measure; EListError it has no current unit
TUnit& RequireCurUnit(int32_t ClassifyCode);

} // namespace unitlib::capi
