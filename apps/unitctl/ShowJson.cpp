#include "apps/unitctl/ShowJson.h"

#include "apps/unitctl/Json.h"
#include "apps/unitctl/Names.h"
#include "unitlib/model/ZELUnitMgr.h"

namespace unitlib::app {
namespace {

using TManager = TSystemUnitDataManager;

void NumberOrNull(TJson& Json, std::string_view Key, int Value, bool Known) {
  Json.Key(Key);
  if (Known)
    Json.Number(Value);
  else
    Json.Null();
}

void WriteText(TJson& Json, std::string_view Key, std::u16string_view Value) {
  Json.Key(Key);
  Json.Text(Value);
}

void WriteRounds(TJson& Json, const TUnit& Unit) {
  NumberOrNull(Json, "currentRounding", Unit.CurRoundIndex, Unit.GetCurRound() != nullptr);
  Json.Key("roundings");
  Json.Open('[');
  for (const auto& Round : Unit.RoundContainer) {
    Json.Open('{');
    WriteText(Json, "description", Round->Description);
    WriteText(Json, "increment", Round->Increment);
    Json.Key("editable");
    Json.Boolean(Round->IncrementCanEdit);
    Json.Close('}');
  }
  Json.Close(']');
}

void WriteSymbols(TJson& Json, const TUnit& Unit) {
  NumberOrNull(Json, "currentSymbol", Unit.CurUnitSymbolIndex,
               Unit.GetUnitSymbol(Unit.CurUnitSymbolIndex) != nullptr);
  Json.Key("symbols");
  Json.Open('[');
  for (const auto& Symbol : Unit.UnitSymbolContainer) Json.Text(Symbol->Description);
  Json.Close(']');
  WriteText(Json, "symbolWhenNone", Unit.DefUnitSymbolWhenNone);
}

void WriteSwitches(TJson& Json, const TUnit& Unit) {
  Json.Key("switches");
  Json.Open('{');
  for (const TSwitch& Switch : Switches()) {
    Json.Key(Switch.Name);
    Json.Open('{');
    Json.Key("enabled");
    Json.Boolean((Unit.*Switch.Setting).Enable);
    Json.Key("on");
    Json.Boolean((Unit.*Switch.Setting).Checked);
    Json.Close('}');
  }
  Json.Close('}');
}

void WriteUnit(TJson& Json, const TUnit& Unit) {
  Json.Open('{');
  Json.Key("code");
  Json.Number(Unit.UnitIdentifyCode);
  WriteText(Json, "description", Unit.Description);
  WriteText(Json, "parser", Unit.UnitParserClassName);
  WriteRounds(Json, Unit);
  WriteSymbols(Json, Unit);
  WriteSwitches(Json, Unit);
  Json.Close('}');
}

void WriteMeasure(TJson& Json, const TMeasure& Measure, int Position) {
  Json.Open('{');
  Json.Key("position");
  Json.Number(Position);
  Json.Key("classifyCode");
  Json.Number(Measure.ClassifyCode);
  WriteText(Json, "description", Measure.Description);
  WriteText(Json, "exampleValue", Measure.ExampleValue);
  WriteText(Json, "exampleDisplay", Measure.ExampleDisplayValue);
  NumberOrNull(Json, "currentUnit", Measure.CurUnitIndex,
               Measure.UnitContainer.Find(Measure.CurUnitIndex) != nullptr);
  Json.Key("units");
  Json.Open('[');
  for (const auto& Unit : Measure.UnitContainer) WriteUnit(Json, *Unit);
  Json.Close(']');
  Json.Close('}');
}

void WriteSystem(TJson& Json, const TConfig& System, int Position) {
  Json.Open('{');
  Json.Key("position");
  Json.Number(Position);
  WriteText(Json, "description", System.Description);
  Json.Key("measures");
  Json.Open('[');
  int MeasurePosition = 0;
  for (const auto& Measure : System.MeasureContainer) WriteMeasure(Json, *Measure, MeasurePosition++);
  Json.Close(']');
  Json.Close('}');
}

void WriteGroups(TJson& Json) {
  const int Count = TManager::DigitGroupCount();
  const int Current = TManager::GetCurDigitGroupIndex();
  NumberOrNull(Json, "currentDigitGroup", Current, Current >= 0 && Current < Count);
  Json.Key("digitGroups");
  Json.Open('[');
  for (int I = 0; I < Count; ++I) Json.Text(TManager::DigitGroup(I)->Description);
  Json.Close(']');
}

} // namespace

std::string SettingsAsJson(const std::string& Path, int ChosenSystem) {
  const auto& Systems = TManager::CurUseUnitConfigContainer();
  TJson Json;
  Json.Open('{');
  Json.Key("settings");
  Json.Text(Path);
  WriteGroups(Json);
  NumberOrNull(Json, "currentSystem", ChosenSystem, Systems.Find(ChosenSystem) != nullptr);
  Json.Key("systems");
  Json.Open('[');
  int Position = 0;
  for (const auto& System : Systems) WriteSystem(Json, *System, Position++);
  Json.Close(']');
  Json.Close('}');
  return Json.Take();
}

std::string MeasureAsJson(const TConfig& System, const TMeasure& Measure) {
  int Position = 0;
  while (System.MeasureContainer.Find(Position) != &Measure) ++Position;
  TJson Json;
  WriteMeasure(Json, Measure, Position);
  return Json.Take();
}

} // namespace unitlib::app
