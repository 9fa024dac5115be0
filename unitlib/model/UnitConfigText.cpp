/// The settings as the text of their file, written straight from the model. The writers of
/// ZELUnitConfigFileGenerator.h build the same as a document; a test compares the two byte for byte.
#include "unitlib/model/UnitModel.h"
#include "unitlib/model/ZELUnitMgr.h"
#include "unitlib/rtl/XmlText.h"

namespace unitlib {
namespace {

void WriteSwitch(TXmlTextWriter& Out, std::string_view Name, const TCheckBoxSetting& Setting) {
  Out.Begin(Name);
  Out.Boolean("DefEnable", Setting.DefEnable);
  Out.Boolean("Enable", Setting.Enable);
  Out.Boolean("DefChecked", Setting.DefChecked);
  Out.Boolean("Checked", Setting.Checked);
  Out.End();
}

void WriteRounds(TXmlTextWriter& Out, const TUnit& Unit) {
  Out.Begin("Rounds");
  for (const auto& Round : Unit.RoundContainer) {
    Out.Begin("Round");
    Out.Text("Description", Round->Description);
    Out.Text("Increment", Round->Increment);
    Out.Boolean("IncrementCanEdit", Round->IncrementCanEdit);
    Out.Boolean("IncrementCanVisible", Round->IncrementCanVisible);
    Out.Integer("OrderIndex", Round->OrderIndex);
    Out.End();
  }
  Out.End();
}

void WriteSymbols(TXmlTextWriter& Out, const TUnit& Unit) {
  Out.Begin("UnitSymbols");
  for (const auto& Symbol : Unit.UnitSymbolContainer) {
    Out.Begin("UnitSymbol");
    Out.Text("Description", Symbol->Description);
    Out.Integer("OrderIndex", Symbol->OrderIndex);
    Out.End();
  }
  Out.End();
}

void WriteUnit(TXmlTextWriter& Out, const TUnit& Unit) {
  Out.Begin("Unit");
  Out.Integer("UnitIdentifyCode", Unit.UnitIdentifyCode);
  Out.Text("Description", Unit.Description);
  Out.Integer("OrderIndex", Unit.OrderIndex);
  Out.Text("DefUnitSymbolWhenNone", Unit.DefUnitSymbolWhenNone);
  Out.Text("UnitParserClassName", Unit.UnitParserClassName);
  Out.Integer("DefRoundIndex", Unit.DefRoundIndex);
  Out.Integer("CurRoundIndex", Unit.CurRoundIndex);
  Out.Integer("DefUnitSymbolIndex", Unit.DefUnitSymbolIndex);
  Out.Integer("CurUnitSymbolIndex", Unit.CurUnitSymbolIndex);
  WriteRounds(Out, Unit);
  WriteSymbols(Out, Unit);
  Out.Begin("Format");
  WriteSwitch(Out, "UseProjectSetting", Unit.UseProjectSetting);
  WriteSwitch(Out, "SuppressTrail0", Unit.SuppressTrail0);
  WriteSwitch(Out, "Suppress0Feet", Unit.Suppress0Feet);
  WriteSwitch(Out, "ShowPlusSymbolForPosValue", Unit.ShowPlusForPosValue);
  WriteSwitch(Out, "UseDigitGroup", Unit.UseDigitGroup);
  WriteSwitch(Out, "SuppressSpace", Unit.SuppressSpace);
  Out.End();
  Out.End();
}

void WriteMeasure(TXmlTextWriter& Out, const TMeasure& Measure, int Position) {
  Out.Begin("Measurement");
  Out.Text("ExampleValue", Measure.ExampleValue);
  Out.Integer("ClassifyCode", Measure.ClassifyCode);
  Out.Text("Description", Measure.Description);
  Out.Integer("OrderIndex", Position);
  Out.Integer("DefUnitIndex", Measure.DefUnitIndex);
  Out.Integer("CurUnitIndex", Measure.CurUnitIndex);
  for (const auto& Unit : Measure.UnitContainer) WriteUnit(Out, *Unit);
  Out.End();
}

void WriteConfig(TXmlTextWriter& Out, const TConfig& Config, int Position) {
  Out.Begin("Config");
  Out.Text("Description", Config.Description);
  Out.Integer("OrderIndex", Position);
  int MeasurePosition = 0;
  for (const auto& Measure : Config.MeasureContainer) WriteMeasure(Out, *Measure, MeasurePosition++);
  Out.End();
}

} // namespace

std::string TSystemUnitDataManager::SaveConfigToMemory() {
  const TConfigList& Configs = CurUseUnitConfigContainer();
  DigitGroupCount(); // raises where there are none
  TXmlTextWriter Out;
  Out.Begin("Unit");
  Out.Begin("TemplateConfig");
  Out.Integer("CurConfigIndex", FCurConfigIndex);
  int Position = 0;
  for (const auto& Config : Configs) WriteConfig(Out, *Config, Position++);
  Out.End();
  Out.Begin("DigitGroup");
  Out.Integer("CurDigitGroupIndex", FCurDigitGroupIndex);
  Position = 0;
  for (const auto& Group : *FCurUseDigitGroupContainer) {
    Out.Begin("CGroup");
    Out.Text("Description", Group->Description);
    Out.Integer("OrderIndex", Position++);
    Out.Text("DigitGroupParserClassName", Group->DigitGroupParserClassName);
    Out.End();
  }
  Out.End();
  Out.End();
  return Out.Take();
}

} // namespace unitlib
