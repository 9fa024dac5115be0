/// The settings file reader and writer of the data manager.
#include "unitlib/model/ZELUnitConfigFileGenerator.h"
#include "unitlib/model/ZELUnitMgr.h"
#include "unitlib/rtl/FileFolders.h"
#include "unitlib/rtl/Xml.h"

namespace unitlib {
namespace {

/// True after a load that succeeded: a half-read model must never overwrite a user's file.
bool CanSave = false;

void ReadCheckBox(TXMLNode Format, std::u16string_view Name, TCheckBoxSetting& Setting) {
  const TXMLNode Node = Format.ChildByName(Name);
  Setting.DefEnable = Node.AttributeBoolean(u"DefEnable");
  Setting.DefChecked = Node.AttributeBoolean(u"DefChecked");
  Setting.Enable = Node.AttributeBoolean(u"Enable");
  Setting.Checked = Node.AttributeBoolean(u"Checked");
}

void ReadRounds(TXMLNode Rounds, TUnit& Unit) {
  for (TXMLNode Node = Rounds.FirstChild(); Node; Node = Node.NextSibling()) {
    TRound& Round = Unit.RoundContainer.Add();
    Round.Description = Node.AttributeText(u"Description");
    Round.IncrementCanVisible = Node.AttributeBoolean(u"IncrementCanVisible");
    Round.IncrementCanEdit = Node.AttributeBoolean(u"IncrementCanEdit");
    Round.SetIncrement(Node.AttributeText(u"Increment"));
    Round.OrderIndex = Node.AttributeInteger(u"OrderIndex");
  }
}

void ReadSymbols(TXMLNode Symbols, TUnit& Unit) {
  for (TXMLNode Node = Symbols.FirstChild(); Node; Node = Node.NextSibling()) {
    TUnitSymbol& Symbol = Unit.UnitSymbolContainer.Add();
    Symbol.Description = Node.AttributeText(u"Description");
    Symbol.OrderIndex = Node.AttributeInteger(u"OrderIndex");
  }
}

void ReadUnit(TXMLNode Node, TUnit& Unit) {
  Unit.UnitIdentifyCode = Node.AttributeInteger(u"UnitIdentifyCode");
  Unit.Description = Node.AttributeText(u"Description");
  Unit.OrderIndex = Node.AttributeInteger(u"OrderIndex");
  Unit.DefRoundIndex = Node.AttributeInteger(u"DefRoundIndex");
  Unit.CurRoundIndex = Node.AttributeInteger(u"CurRoundIndex");
  Unit.DefUnitSymbolIndex = Node.AttributeInteger(u"DefUnitSymbolIndex");
  Unit.CurUnitSymbolIndex = Node.AttributeInteger(u"CurUnitSymbolIndex");
  Unit.DefUnitSymbolWhenNone = Node.AttributeText(u"DefUnitSymbolWhenNone");
  Unit.UnitParserClassName = Node.AttributeText(u"UnitParserClassName");
  ReadRounds(Node.ChildByName(u"Rounds"), Unit);
  ReadSymbols(Node.ChildByName(u"UnitSymbols"), Unit);
  const TXMLNode Format = Node.ChildByName(u"Format");
  ReadCheckBox(Format, u"UseProjectSetting", Unit.UseProjectSetting);
  ReadCheckBox(Format, u"SuppressTrail0", Unit.SuppressTrail0);
  ReadCheckBox(Format, u"Suppress0Feet", Unit.Suppress0Feet);
  ReadCheckBox(Format, u"ShowPlusSymbolForPosValue", Unit.ShowPlusForPosValue);
  ReadCheckBox(Format, u"UseDigitGroup", Unit.UseDigitGroup);
  ReadCheckBox(Format, u"SuppressSpace", Unit.SuppressSpace);
}

void ReadMeasure(TXMLNode Node, TMeasure& Measure) {
  Measure.Description = Node.AttributeText(u"Description");
  Measure.OrderIndex = Node.AttributeInteger(u"OrderIndex");
  Measure.DefUnitIndex = Node.AttributeInteger(u"DefUnitIndex");
  Measure.CurUnitIndex = Node.AttributeInteger(u"CurUnitIndex");
  Measure.ExampleValue = Node.AttributeText(u"ExampleValue");
  Measure.ClassifyCode = Node.AttributeInteger(u"ClassifyCode");
  for (TXMLNode Child = Node.FirstChild(); Child; Child = Child.NextSibling())
    ReadUnit(Child, Measure.UnitContainer.Add());
}

void ReadConfig(TXMLNode Node, TConfig& Config) {
  Config.Description = Node.AttributeText(u"Description");
  Config.OrderIndex = Node.AttributeInteger(u"OrderIndex");
  for (TXMLNode Child = Node.FirstChild(); Child; Child = Child.NextSibling())
    ReadMeasure(Child, Config.MeasureContainer.Add());
}

void ReadDigitGroup(TXMLNode Node, TDigitGroup& Group) {
  Group.Description = Node.AttributeText(u"Description");
  Group.OrderIndex = Node.AttributeInteger(u"OrderIndex");
  Group.DigitGroupParserClassName = Node.AttributeText(u"DigitGroupParserClassName");
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
  const auto Document = CreateXMLDocument(true, true);
  Document->LoadFromFile(FUnitConfigFile);
  const TXMLNode Root = Document->DocumentElement();
  const TXMLNode Template = Root.ChildByName(u"TemplateConfig");
  FCurConfigIndex = Template.AttributeInteger(u"CurConfigIndex");
  for (TXMLNode Child = Template.FirstChild(); Child; Child = Child.NextSibling())
    ReadConfig(Child, Configs.Add());
  const TXMLNode GroupNode = Root.ChildByName(u"DigitGroup");
  FCurDigitGroupIndex = GroupNode.AttributeInteger(u"CurDigitGroupIndex");
  for (TXMLNode Child = GroupNode.FirstChild(); Child; Child = Child.NextSibling())
    ReadDigitGroup(Child, Groups.Add());
  CanSave = true;
}

void TSystemUnitDataManager::SaveConfigFile(std::u16string_view FileName) {
  const TConfigList& Configs = CurUseUnitConfigContainer();
  const TDigitGroupList& Groups = CurDigitGroups();
  const std::u16string Target = FileName.empty() ? FUnitConfigFile : std::u16string(FileName);
  if (!CanSave)
    throw EFileError(u"Not saved, because the settings were not read to their end", Target, FUnitConfigFile);
  const auto Document = CreateXMLDocument(true, true);
  TXMLNode Root = Document->AddDocumentElement(u"Unit");
  TXMLNode Template = Root.AddChild(u"TemplateConfig");
  Template.AddInteger(u"CurConfigIndex", FCurConfigIndex);
  int Position = 0;
  for (const auto& Config : Configs) GenerateOneConfig(Template, Config->Description, Position++, *Config);
  TXMLNode GroupNode = Root.AddChild(u"DigitGroup");
  GroupNode.AddInteger(u"CurDigitGroupIndex", FCurDigitGroupIndex);
  Position = 0;
  for (const auto& Group : Groups)
    GenerateOneGroup(GroupNode, Group->Description, Position++, Group->DigitGroupParserClassName);
  Document->SaveToFile(Target);
}

} // namespace unitlib
