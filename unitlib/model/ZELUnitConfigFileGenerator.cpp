#include "unitlib/model/ZELUnitConfigFileGenerator.h"

#include "unitlib/model/DefaultConfigTables.h"
#include "unitlib/rtl/FileFolders.h"

namespace unitlib {
namespace {

void WriteDefaultRounds(TXMLNode Unit, const defaults::TUnitRow& Row) {
  TXMLNode Rounds = Unit.AddChild(u"Rounds");
  int Position = 0;
  for (const auto& Round : Row.Rounds)
    GenerateOneRound(Rounds, Round.Description, Round.Increment, Round.CanEdit, Round.CanVisible, Position++);
}

void WriteDefaultSymbols(TXMLNode Unit, const defaults::TUnitRow& Row) {
  TXMLNode Symbols = Unit.AddChild(u"UnitSymbols");
  int Position = 0;
  for (std::u16string_view Symbol : Row.Symbols) GenerateOneUnitSymbol(Symbols, Symbol, Position++);
}

void WriteDefaultFormat(TXMLNode Unit, const defaults::TUnitRow& Row) {
  TXMLNode Format = Unit.AddChild(u"Format");
  for (const auto& State : defaults::FormatStates(Row))
    GenerateOneFormatState(Format, State.Name, State.Enable, State.Checked);
}

TXMLNode AddUnit(TXMLNode Parent, std::u16string_view Description, int OrderIndex,
                 std::u16string_view DefUnitSymbolWhenNone, std::u16string_view UnitParserClassName,
                 int UnitIdentifyCode) {
  TXMLNode Unit = Parent.AddChild(u"Unit");
  Unit.AddInteger(u"UnitIdentifyCode", UnitIdentifyCode);
  Unit.AddText(u"Description", Description);
  Unit.AddInteger(u"OrderIndex", OrderIndex);
  Unit.AddText(u"DefUnitSymbolWhenNone", DefUnitSymbolWhenNone);
  Unit.AddText(u"UnitParserClassName", UnitParserClassName);
  return Unit;
}

void AddUnitIndices(TXMLNode Unit, int DefRound, int CurRound, int DefSymbol, int CurSymbol) {
  Unit.AddInteger(u"DefRoundIndex", DefRound);
  Unit.AddInteger(u"CurRoundIndex", CurRound);
  Unit.AddInteger(u"DefUnitSymbolIndex", DefSymbol);
  Unit.AddInteger(u"CurUnitSymbolIndex", CurSymbol);
}

TXMLNode AddMeasure(TXMLNode Parent, std::u16string_view ExampleValue, int ClassifyCode,
                    std::u16string_view Description, int OrderIndex, int DefUnitIndex, int CurUnitIndex) {
  TXMLNode Measure = Parent.AddChild(u"Measurement");
  Measure.AddText(u"ExampleValue", ExampleValue);
  Measure.AddInteger(u"ClassifyCode", ClassifyCode);
  Measure.AddText(u"Description", Description);
  Measure.AddInteger(u"OrderIndex", OrderIndex);
  Measure.AddInteger(u"DefUnitIndex", DefUnitIndex);
  Measure.AddInteger(u"CurUnitIndex", CurUnitIndex);
  return Measure;
}

TXMLNode AddConfig(TXMLNode Parent, std::u16string_view Description, int OrderIndex) {
  TXMLNode Config = Parent.AddChild(u"Config");
  Config.AddText(u"Description", Description);
  Config.AddInteger(u"OrderIndex", OrderIndex);
  return Config;
}

} // namespace

std::unique_ptr<TXMLDocument> BuildUnitDefaultConfig() {
  auto Document = CreateXMLDocument(true, true);
  TXMLNode Root = Document->AddDocumentElement(u"Unit");
  TXMLNode Template = Root.AddChild(u"TemplateConfig");
  Template.AddInteger(u"CurConfigIndex", -1);
  int Position = 0;
  for (std::u16string_view Description : defaults::Configs)
    GenerateOneConfig(Template, Description, Position++);
  TXMLNode Groups = Root.AddChild(u"DigitGroup");
  Groups.AddInteger(u"CurDigitGroupIndex", 0);
  Position = 0;
  for (const auto& Group : defaults::DigitGroups)
    GenerateOneGroup(Groups, Group.Description, Position++, Group.ParserClassName);
  return Document;
}

void GenerateUnitDefaultConfigFile(std::u16string_view FileName) {
  BuildUnitDefaultConfig()->SaveToFile(FileName);
}
void GenerateUnitDefaultConfigFile() {
  GenerateUnitDefaultConfigFile(GetExePath() + u"UnitConfig.xml");
}

void GenerateOneConfig(TXMLNode Parent, std::u16string_view Description, int OrderIndex) {
  const TXMLNode Config = AddConfig(Parent, Description, OrderIndex);
  int MeasureIndex = 0;
  for (const auto& Measure : defaults::Measures)
    GenerateOneMeasure(Config, OrderIndex, Measure.Description, MeasureIndex++);
}

void GenerateOneMeasure(TXMLNode Parent, int ConfigIndex, std::u16string_view Description, int MeasureIndex) {
  const defaults::TMeasureRow& Row = defaults::MeasureRow(MeasureIndex);
  const int DefUnit = defaults::DefaultUnit(Row, ConfigIndex);
  const TXMLNode Measure =
      AddMeasure(Parent, Row.ExampleValue, Row.ClassifyCode, Description, MeasureIndex, DefUnit, DefUnit);
  int OrderIndex = 0;
  for (const auto& Unit : Row.Units)
    GenerateOneUnit(Measure, ConfigIndex, MeasureIndex, Unit.Description, OrderIndex++, Unit.SymbolWhenNone,
                    Unit.ParserClassName, Unit.IdentifyCode);
}

void GenerateOneUnit(TXMLNode Parent, int, int MeasureIndex, std::u16string_view Description, int OrderIndex,
                     std::u16string_view DefUnitSymbolWhenNone, std::u16string_view UnitParserClassName,
                     int UnitIdentifyCode) {
  const defaults::TUnitRow& Row = defaults::UnitRow(MeasureIndex, OrderIndex);
  const TXMLNode Unit =
      AddUnit(Parent, Description, OrderIndex, DefUnitSymbolWhenNone, UnitParserClassName, UnitIdentifyCode);
  AddUnitIndices(Unit, Row.DefRound, Row.DefRound, 0, 0);
  WriteDefaultRounds(Unit, Row);
  WriteDefaultSymbols(Unit, Row);
  WriteDefaultFormat(Unit, Row);
}

void GenerateOneFormatState(TXMLNode Parent, std::u16string_view Name, bool Enable, bool Checked) {
  GenerateOneFormatState(Parent, Name, Enable, Enable, Checked, Checked);
}

void GenerateOneConfig(TXMLNode Parent, std::u16string_view Description, int OrderIndex,
                       const TConfig& Config) {
  const TXMLNode Node = AddConfig(Parent, Description, OrderIndex);
  int Position = 0;
  for (const auto& Measure : Config.MeasureContainer)
    GenerateOneMeasure(Node, OrderIndex, Measure->Description, Position++, *Measure);
}

void GenerateOneMeasure(TXMLNode Parent, int ConfigIndex, std::u16string_view Description, int MeasureIndex,
                        const TMeasure& Measure) {
  const TXMLNode Node = AddMeasure(Parent, Measure.ExampleValue, Measure.ClassifyCode, Description,
                                   MeasureIndex, Measure.DefUnitIndex, Measure.CurUnitIndex);
  for (const auto& Unit : Measure.UnitContainer)
    GenerateOneUnit(Node, ConfigIndex, MeasureIndex, Unit->Description, Unit->OrderIndex,
                    Unit->DefUnitSymbolWhenNone, Unit->UnitParserClassName, Unit->UnitIdentifyCode, *Unit);
}

void GenerateOneUnit(TXMLNode Parent, int, int, std::u16string_view Description, int OrderIndex,
                     std::u16string_view DefUnitSymbolWhenNone, std::u16string_view UnitParserClassName,
                     int UnitIdentifyCode, const TUnit& Unit) {
  TXMLNode Node =
      AddUnit(Parent, Description, OrderIndex, DefUnitSymbolWhenNone, UnitParserClassName, UnitIdentifyCode);
  AddUnitIndices(Node, Unit.DefRoundIndex, Unit.CurRoundIndex, Unit.DefUnitSymbolIndex,
                 Unit.CurUnitSymbolIndex);
  const TXMLNode Rounds = Node.AddChild(u"Rounds");
  for (const auto& Round : Unit.RoundContainer)
    GenerateOneRound(Rounds, Round->Description, Round->Increment, Round->IncrementCanEdit,
                     Round->IncrementCanVisible, Round->OrderIndex);
  const TXMLNode Symbols = Node.AddChild(u"UnitSymbols");
  for (const auto& Symbol : Unit.UnitSymbolContainer)
    GenerateOneUnitSymbol(Symbols, Symbol->Description, Symbol->OrderIndex);
  const TXMLNode Format = Node.AddChild(u"Format");
  auto State = [&Format](std::u16string_view Name, const TCheckBoxSetting& Setting) {
    GenerateOneFormatState(Format, Name, Setting.DefEnable, Setting.Enable, Setting.DefChecked,
                           Setting.Checked);
  };
  State(u"UseProjectSetting", Unit.UseProjectSetting);
  State(u"SuppressTrail0", Unit.SuppressTrail0);
  State(u"Suppress0Feet", Unit.Suppress0Feet);
  State(u"ShowPlusSymbolForPosValue", Unit.ShowPlusForPosValue);
  State(u"UseDigitGroup", Unit.UseDigitGroup);
  State(u"SuppressSpace", Unit.SuppressSpace);
}

void GenerateOneFormatState(TXMLNode Parent, std::u16string_view Name, bool DefEnable, bool Enable,
                            bool DefChecked, bool Checked) {
  TXMLNode Node = Parent.AddChild(Name);
  Node.AddBoolean(u"DefEnable", DefEnable);
  Node.AddBoolean(u"Enable", Enable);
  Node.AddBoolean(u"DefChecked", DefChecked);
  Node.AddBoolean(u"Checked", Checked);
}

void GenerateOneRound(TXMLNode Parent, std::u16string_view Description, std::u16string_view Increment,
                      bool IncrementCanEdit, bool IncrementCanVisible, int OrderIndex) {
  TXMLNode Node = Parent.AddChild(u"Round");
  Node.AddText(u"Description", Description);
  Node.AddText(u"Increment", Increment);
  Node.AddBoolean(u"IncrementCanEdit", IncrementCanEdit);
  Node.AddBoolean(u"IncrementCanVisible", IncrementCanVisible);
  Node.AddInteger(u"OrderIndex", OrderIndex);
}

void GenerateOneUnitSymbol(TXMLNode Parent, std::u16string_view Description, int OrderIndex) {
  TXMLNode Node = Parent.AddChild(u"UnitSymbol");
  Node.AddText(u"Description", Description);
  Node.AddInteger(u"OrderIndex", OrderIndex);
}

void GenerateOneGroup(TXMLNode Parent, std::u16string_view Description, int OrderIndex,
                      std::u16string_view DigitGroupParserClassName) {
  TXMLNode Node = Parent.AddChild(u"CGroup");
  Node.AddText(u"Description", Description);
  Node.AddInteger(u"OrderIndex", OrderIndex);
  Node.AddText(u"DigitGroupParserClassName", DigitGroupParserClassName);
}

} // namespace unitlib
