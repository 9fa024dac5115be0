#include "UnitSetup.h"

#include "CaseLine.h"

#include "unitlib/model/ZELUnitMgr.h"

namespace unitlib::differential {
namespace {

void FillRounds(TUnit& Unit, std::string_view How, std::string_view Increment) {
  if (How == "0") {
    Unit.CurRoundIndex = -1;
    return;
  }
  TRound& Round = Unit.RoundContainer.Add();
  Round.SetIncrement(Unescape(Increment));
  Round.IncrementCanEdit = How == "3";
}

void FillSwitches(TUnit& Unit, std::string_view Switches) {
  TCheckBoxSetting* Boxes[] = {&Unit.UseProjectSetting,   &Unit.SuppressTrail0, &Unit.Suppress0Feet,
                               &Unit.ShowPlusForPosValue, &Unit.UseDigitGroup,  &Unit.SuppressSpace};
  for (size_t I = 0; I < std::size(Boxes); ++I) Boxes[I]->Checked = Switches[I] == '1';
}

void FillUnit(TUnit& Unit, const std::vector<std::string_view>& Parts) {
  Unit.UnitParserClassName = Unescape(Parts[0]);
  Unit.UnitIdentifyCode = std::stoi(std::string(Parts[1]));
  FillRounds(Unit, Parts[2], Parts[3]);
  for (const std::string_view Symbol : SplitList(Parts[4], ';'))
    Unit.UnitSymbolContainer.Add().Description = Unescape(Symbol);
  Unit.CurUnitSymbolIndex = std::stoi(std::string(Parts[5]));
  FillSwitches(Unit, Parts[6]);
  Unit.DefUnitSymbolWhenNone = Unescape(Parts[7]);
}

} // namespace

TUnitSetup::TUnitSetup(std::string_view Field, int ClassifyCode) {
  using TManager = TSystemUnitDataManager;
  const auto Parts = Split(Field, '|');
  TManager::FUnitConfigContainer = std::make_unique<TManager::TConfigList>();
  TManager::FDigitGroupContainer = std::make_unique<TManager::TDigitGroupList>();
  TManager::FCurUseUnitConfigContainer = TManager::FUnitConfigContainer.get();
  TManager::FCurUseDigitGroupContainer = TManager::FDigitGroupContainer.get();
  TManager::SetCurConfig(0);
  TManager::SetCurDigitGroupIndex(Parts[8] == "?" ? 7 : 0);
  TManager::FDigitGroupContainer->Add().DigitGroupParserClassName = Unescape(Parts[8]);
  TMeasure& Measure = TManager::FUnitConfigContainer->Add().MeasureContainer.Add();
  Measure.ClassifyCode = ClassifyCode;
  FUnit = &Measure.UnitContainer.Add();
  FillUnit(*FUnit, Parts);
}

TUnitSetup::~TUnitSetup() {
  FreeUnitSystem();
}

} // namespace unitlib::differential
