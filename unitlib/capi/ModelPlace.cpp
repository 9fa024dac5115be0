#include "unitlib/capi/ModelPlace.h"

#include "unitlib/capi/Call.h"
#include "unitlib/model/ZELUnitMgr.h"
#include "unitlib/rtl/Numbers.h"

namespace unitlib::capi {

using TManager = TSystemUnitDataManager;

TConfigueType RequireConfigType(int32_t ConfigType) {
  return static_cast<TConfigueType>(RequireCode(ConfigType, CYINMetric + 1, u"configuration type"));
}

TConfig& ConfigAt(int32_t Config) {
  return Config == UL_CURRENT ? *TManager::CurConfig() : TManager::CurUseUnitConfigContainer().Item(Config);
}

TMeasure& MeasureAt(int32_t Config, int32_t Measure) {
  return ConfigAt(Config).MeasureContainer.Item(Measure);
}

TUnit& UnitAt(int32_t Config, int32_t Measure, int32_t Unit) {
  TMeasure& Owner = MeasureAt(Config, Measure);
  return Owner.UnitContainer.Item(Unit == UL_CURRENT ? Owner.CurUnitIndex : Unit);
}

TRound& RoundAt(TUnit& Unit, int32_t Round) {
  return Unit.RoundContainer.Item(Round == UL_CURRENT ? Unit.CurRoundIndex : Round);
}

TUnitSymbol& SymbolAt(TUnit& Unit, int32_t Symbol) {
  return Unit.UnitSymbolContainer.Item(Symbol == UL_CURRENT ? Unit.CurUnitSymbolIndex : Symbol);
}

TCheckBoxSetting& SwitchAt(TUnit& Unit, int32_t Which) {
  TCheckBoxSetting* const Switches[] = {&Unit.UseProjectSetting,   &Unit.SuppressTrail0, &Unit.Suppress0Feet,
                                        &Unit.ShowPlusForPosValue, &Unit.UseDigitGroup,  &Unit.SuppressSpace};
  return *Switches[RequireCode(Which, UL_SUPPRESS_SPACE + 1, u"format switch")];
}

TDigitGroup& DigitGroupAt(int32_t Group) {
  return Group == UL_CURRENT ? *TManager::CurDigitGroup() : *TManager::DigitGroup(Group);
}

TUnit& RequireCurUnit(int32_t ClassifyCode) {
  if (const TMeasure* const Measure = TManager::CurConfigMeasure(ClassifyCode)) return *Measure->GetCurUnit();
  const std::u16string Code = IntToStr(ClassifyCode);
  throw TFailure{UL_ERROR_INDEX, u"There is no measure with classify code " + Code, Code};
}

} // namespace unitlib::capi
