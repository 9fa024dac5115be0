#include "fuzz/ModelText.h"

#include "fuzz/Check.h"
#include "unitlib/model/ZELUnitMgr.h"

namespace unitlib::fuzz {
namespace {

template <class... T> void Line(std::string& Out, const char* What, const T&... Fields) {
  Out += What;
  ((Out += " " + Show(Fields)), ...);
  Out += "\n";
}

void Switch(std::string& Out, const TCheckBoxSetting& Setting) {
  Line(Out, "switch", Setting.DefEnable, Setting.Enable, Setting.DefChecked, Setting.Checked);
}

void UnitText(std::string& Out, const TUnit& Unit) {
  Line(Out, "unit", Unit.UnitIdentifyCode, Unit.Description, Unit.OrderIndex, Unit.DefRoundIndex,
       Unit.CurRoundIndex, Unit.DefUnitSymbolIndex, Unit.CurUnitSymbolIndex, Unit.DefUnitSymbolWhenNone,
       Unit.UnitParserClassName);
  for (const auto& Round : Unit.RoundContainer)
    Line(Out, "round", Round->Description, Round->Increment, Round->IncrementCanEdit,
         Round->IncrementCanVisible, Round->OrderIndex);
  for (const auto& Symbol : Unit.UnitSymbolContainer)
    Line(Out, "symbol", Symbol->Description, Symbol->OrderIndex);
  for (const auto* Setting : {&Unit.UseProjectSetting, &Unit.SuppressTrail0, &Unit.Suppress0Feet,
                              &Unit.ShowPlusForPosValue, &Unit.UseDigitGroup, &Unit.SuppressSpace})
    Switch(Out, *Setting);
}

} // namespace

std::string ModelText(bool Saved) {
  using TManager = TSystemUnitDataManager;
  std::string Out;
  Line(Out, "current", TManager::FCurConfigIndex, TManager::FCurDigitGroupIndex);
  int ConfigPosition = 0;
  for (const auto& Config : TManager::CurUseUnitConfigContainer()) {
    Line(Out, "config", Config->Description, Saved ? ConfigPosition : Config->OrderIndex);
    ++ConfigPosition;
    int Position = 0;
    for (const auto& Measure : Config->MeasureContainer) {
      Line(Out, "measure", Measure->Description, Saved ? Position : Measure->OrderIndex,
           Measure->DefUnitIndex, Measure->CurUnitIndex, Measure->ExampleValue, Measure->ClassifyCode);
      ++Position;
      for (const auto& Unit : Measure->UnitContainer) UnitText(Out, *Unit);
    }
  }
  int Position = 0;
  for (const auto& Group : *TManager::FCurUseDigitGroupContainer) {
    Line(Out, "group", Group->Description, Saved ? Position : Group->OrderIndex,
         Group->DigitGroupParserClassName);
    ++Position;
  }
  return Out;
}

} // namespace unitlib::fuzz
