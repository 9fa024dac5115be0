/// The settings file reader and writer of the data manager.
#include "unitlib/model/WrittenSettings.h"
#include "unitlib/model/ZELUnitMgr.h"
#include "unitlib/rtl/FileFolders.h"
#include "unitlib/rtl/Files.h"
#include "unitlib/rtl/Xml.h"

namespace unitlib {
namespace {

/// True after a load that succeeded: a half-read model must never overwrite a user's file.
bool CanSave = false;

void ReadCheckBox(TXMLNode Format, const char* Name, TCheckBoxSetting& Setting) {
  const TXMLNode Node = Format.ChildByName(Name);
  Setting.DefEnable = Node.AttributeBoolean("DefEnable");
  Setting.DefChecked = Node.AttributeBoolean("DefChecked");
  Setting.Enable = Node.AttributeBoolean("Enable");
  Setting.Checked = Node.AttributeBoolean("Checked");
}

void ReadRounds(TXMLNode Rounds, TUnit& Unit) {
  Unit.RoundContainer.Reserve(Rounds.ChildCount());
  for (TXMLNode Node = Rounds.FirstChild(); Node; Node = Node.NextSibling()) {
    TRound& Round = Unit.RoundContainer.Add();
    Round.Description = Node.AttributeText("Description");
    Round.IncrementCanVisible = Node.AttributeBoolean("IncrementCanVisible");
    Round.IncrementCanEdit = Node.AttributeBoolean("IncrementCanEdit");
    Round.SetIncrement(Node.AttributeText("Increment"));
    Round.OrderIndex = Node.AttributeInteger("OrderIndex");
  }
}

void ReadSymbols(TXMLNode Symbols, TUnit& Unit) {
  Unit.UnitSymbolContainer.Reserve(Symbols.ChildCount());
  for (TXMLNode Node = Symbols.FirstChild(); Node; Node = Node.NextSibling()) {
    TUnitSymbol& Symbol = Unit.UnitSymbolContainer.Add();
    Symbol.Description = Node.AttributeText("Description");
    Symbol.OrderIndex = Node.AttributeInteger("OrderIndex");
  }
}

void ReadUnit(TXMLNode Node, TUnit& Unit) {
  Unit.UnitIdentifyCode = Node.AttributeInteger("UnitIdentifyCode");
  Unit.Description = Node.AttributeText("Description");
  Unit.OrderIndex = Node.AttributeInteger("OrderIndex");
  Unit.DefRoundIndex = Node.AttributeInteger("DefRoundIndex");
  Unit.CurRoundIndex = Node.AttributeInteger("CurRoundIndex");
  Unit.DefUnitSymbolIndex = Node.AttributeInteger("DefUnitSymbolIndex");
  Unit.CurUnitSymbolIndex = Node.AttributeInteger("CurUnitSymbolIndex");
  Unit.DefUnitSymbolWhenNone = Node.AttributeText("DefUnitSymbolWhenNone");
  Unit.UnitParserClassName = Node.AttributeText("UnitParserClassName");
  ReadRounds(Node.ChildByName("Rounds"), Unit);
  ReadSymbols(Node.ChildByName("UnitSymbols"), Unit);
  const TXMLNode Format = Node.ChildByName("Format");
  ReadCheckBox(Format, "UseProjectSetting", Unit.UseProjectSetting);
  ReadCheckBox(Format, "SuppressTrail0", Unit.SuppressTrail0);
  ReadCheckBox(Format, "Suppress0Feet", Unit.Suppress0Feet);
  ReadCheckBox(Format, "ShowPlusSymbolForPosValue", Unit.ShowPlusForPosValue);
  ReadCheckBox(Format, "UseDigitGroup", Unit.UseDigitGroup);
  ReadCheckBox(Format, "SuppressSpace", Unit.SuppressSpace);
}

void ReadMeasure(TXMLNode Node, TMeasure& Measure) {
  Measure.Description = Node.AttributeText("Description");
  Measure.OrderIndex = Node.AttributeInteger("OrderIndex");
  Measure.DefUnitIndex = Node.AttributeInteger("DefUnitIndex");
  Measure.CurUnitIndex = Node.AttributeInteger("CurUnitIndex");
  Measure.ExampleValue = Node.AttributeText("ExampleValue");
  Measure.ClassifyCode = Node.AttributeInteger("ClassifyCode");
  for (TXMLNode Child = Node.FirstChild(); Child; Child = Child.NextSibling())
    ReadUnit(Child, Measure.UnitContainer.Add());
}

void ReadConfig(TXMLNode Node, TConfig& Config) {
  Config.Description = Node.AttributeText("Description");
  Config.OrderIndex = Node.AttributeInteger("OrderIndex");
  for (TXMLNode Child = Node.FirstChild(); Child; Child = Child.NextSibling())
    ReadMeasure(Child, Config.MeasureContainer.Add());
}

void ReadDigitGroup(TXMLNode Node, TDigitGroup& Group) {
  Group.Description = Node.AttributeText("Description");
  Group.OrderIndex = Node.AttributeInteger("OrderIndex");
  Group.DigitGroupParserClassName = Node.AttributeText("DigitGroupParserClassName");
}

/// The current digit groups; absent together with the configurations, unless a host has changed one of both.
TSystemUnitDataManager::TDigitGroupList& CurDigitGroups() {
  TSystemUnitDataManager::DigitGroupCount(); // raises where there are none
  return *TSystemUnitDataManager::FCurUseDigitGroupContainer;
}

} // namespace

void TSystemUnitDataManager::ParseUnitConfigXMLFile(std::u16string_view FileName) {
  CanSave = false;
  TConfigList& Configs = CurUseUnitConfigContainer();
  TDigitGroupList& Groups = CurDigitGroups();
  FUnitConfigFile = FileName.empty() ? GetExePath() + u"UnitConfig.xml" : std::u16string(FileName);
  std::string Content = ReadWholeFile(FUnitConfigFile);
  if (auto Written = ReadWrittenSettings(Content)) {
    Configs.AddAll(Written->Configs);
    Groups.AddAll(Written->DigitGroups);
    FCurConfigIndex = Written->CurConfigIndex;
    FCurDigitGroupIndex = Written->CurDigitGroupIndex;
    CanSave = true;
    return;
  }
  const auto Document = CreateXMLDocument(true, true);
  Document->LoadFromMemory(std::move(Content), FUnitConfigFile);
  const TXMLNode Root = Document->DocumentElement();
  const TXMLNode Template = Root.ChildByName("TemplateConfig");
  FCurConfigIndex = Template.AttributeInteger("CurConfigIndex");
  for (TXMLNode Child = Template.FirstChild(); Child; Child = Child.NextSibling())
    ReadConfig(Child, Configs.Add());
  const TXMLNode GroupNode = Root.ChildByName("DigitGroup");
  FCurDigitGroupIndex = GroupNode.AttributeInteger("CurDigitGroupIndex");
  for (TXMLNode Child = GroupNode.FirstChild(); Child; Child = Child.NextSibling())
    ReadDigitGroup(Child, Groups.Add());
  CanSave = true;
}

void TSystemUnitDataManager::SaveConfigFile(std::u16string_view FileName) {
  const std::u16string Target = FileName.empty() ? FUnitConfigFile : std::u16string(FileName);
  if (!CanSave) {
    CurUseUnitConfigContainer(); // nothing loaded at all is the graver reason
    CurDigitGroups();
    throw EFileError(u"Not saved, because the settings were not read to their end", Target, FUnitConfigFile);
  }
  WriteWholeFile(Target, SaveConfigToMemory());
}

} // namespace unitlib
