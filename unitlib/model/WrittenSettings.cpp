/// The short way to load a settings file: UnitConfigText.cpp the other way round, element by element in its
/// order. The reader in UnitConfigFile.cpp finds everything by name, knows what is wrong where, and takes four
/// times as long; tests compare the two.
#include "unitlib/model/WrittenSettings.h"

#include "unitlib/rtl/XmlTextReader.h"

namespace unitlib {
namespace {

/// Items of a list before their number is known; kept from list to list.
template <class T> using TItems = std::vector<std::unique_ptr<T>>;

template <class T> T& AddTo(TItems<T>& Items) {
  return *Items.emplace_back(std::make_unique<T>());
}

class TSettingsText {
public:
  explicit TSettingsText(const std::string& Text) : FIn(Text) {}

  std::optional<TWrittenSettings> Read();

private:
  void ReadGroup(TDigitGroup& Group);
  void ReadConfig(TConfig& Config);
  void ReadMeasure(TMeasure& Measure);
  void ReadUnit(TUnit& Unit);
  void ReadRounds(TUnit& Unit);
  void ReadSymbols(TUnit& Unit);
  template <std::size_t Size> void ReadSwitch(const char (&Name)[Size], TCheckBoxSetting& Setting);

  TXmlTextReader FIn;
  TItems<TMeasure> FMeasures;
  TItems<TUnit> FUnits;
  TItems<TRound> FRounds;
  TItems<TUnitSymbol> FSymbols;
};

std::optional<TWrittenSettings> TSettingsText::Read() {
  TWrittenSettings Result;
  FIn.Enter("Unit");
  FIn.Enter("TemplateConfig");
  Result.CurConfigIndex = FIn.Integer("CurConfigIndex");
  while (FIn.Begin("Config")) ReadConfig(AddTo(Result.Configs));
  FIn.End("TemplateConfig");
  FIn.Enter("DigitGroup");
  Result.CurDigitGroupIndex = FIn.Integer("CurDigitGroupIndex");
  while (FIn.Begin("CGroup")) ReadGroup(AddTo(Result.DigitGroups));
  FIn.End("DigitGroup");
  FIn.End("Unit");
  FIn.Finish();
  if (FIn.GaveUp()) return std::nullopt;
  return Result;
}

void TSettingsText::ReadGroup(TDigitGroup& Group) {
  Group.Description = FIn.Text("Description");
  Group.OrderIndex = FIn.Integer("OrderIndex");
  Group.DigitGroupParserClassName = FIn.Text("DigitGroupParserClassName");
  FIn.End("CGroup");
}

void TSettingsText::ReadConfig(TConfig& Config) {
  Config.Description = FIn.Text("Description");
  Config.OrderIndex = FIn.Integer("OrderIndex");
  while (FIn.Begin("Measurement")) ReadMeasure(AddTo(FMeasures));
  Config.MeasureContainer.AddAll(FMeasures);
  FIn.End("Config");
}

void TSettingsText::ReadMeasure(TMeasure& Measure) {
  Measure.ExampleValue = FIn.Text("ExampleValue");
  Measure.ClassifyCode = FIn.Integer("ClassifyCode");
  Measure.Description = FIn.Text("Description");
  Measure.OrderIndex = FIn.Integer("OrderIndex");
  Measure.DefUnitIndex = FIn.Integer("DefUnitIndex");
  Measure.CurUnitIndex = FIn.Integer("CurUnitIndex");
  while (FIn.Begin("Unit")) ReadUnit(AddTo(FUnits));
  Measure.UnitContainer.AddAll(FUnits);
  FIn.End("Measurement");
}

void TSettingsText::ReadUnit(TUnit& Unit) {
  Unit.UnitIdentifyCode = FIn.Integer("UnitIdentifyCode");
  Unit.Description = FIn.Text("Description");
  Unit.OrderIndex = FIn.Integer("OrderIndex");
  Unit.DefUnitSymbolWhenNone = FIn.Text("DefUnitSymbolWhenNone");
  Unit.UnitParserClassName = FIn.Text("UnitParserClassName");
  Unit.DefRoundIndex = FIn.Integer("DefRoundIndex");
  Unit.CurRoundIndex = FIn.Integer("CurRoundIndex");
  Unit.DefUnitSymbolIndex = FIn.Integer("DefUnitSymbolIndex");
  Unit.CurUnitSymbolIndex = FIn.Integer("CurUnitSymbolIndex");
  ReadRounds(Unit);
  ReadSymbols(Unit);
  FIn.Enter("Format");
  ReadSwitch("UseProjectSetting", Unit.UseProjectSetting);
  ReadSwitch("SuppressTrail0", Unit.SuppressTrail0);
  ReadSwitch("Suppress0Feet", Unit.Suppress0Feet);
  ReadSwitch("ShowPlusSymbolForPosValue", Unit.ShowPlusForPosValue);
  ReadSwitch("UseDigitGroup", Unit.UseDigitGroup);
  ReadSwitch("SuppressSpace", Unit.SuppressSpace);
  FIn.End("Format");
  FIn.End("Unit");
}

void TSettingsText::ReadRounds(TUnit& Unit) {
  FIn.Enter("Rounds");
  while (FIn.Begin("Round")) {
    TRound& Round = AddTo(FRounds);
    Round.Description = FIn.Text("Description");
    Round.Increment = FIn.Text("Increment");
    Round.IncrementCanEdit = FIn.Boolean("IncrementCanEdit");
    Round.IncrementCanVisible = FIn.Boolean("IncrementCanVisible");
    Round.OrderIndex = FIn.Integer("OrderIndex");
    FIn.End("Round");
  }
  Unit.RoundContainer.AddAll(FRounds);
  FIn.End("Rounds");
}

void TSettingsText::ReadSymbols(TUnit& Unit) {
  FIn.Enter("UnitSymbols");
  while (FIn.Begin("UnitSymbol")) {
    TUnitSymbol& Symbol = AddTo(FSymbols);
    Symbol.Description = FIn.Text("Description");
    Symbol.OrderIndex = FIn.Integer("OrderIndex");
    FIn.End("UnitSymbol");
  }
  Unit.UnitSymbolContainer.AddAll(FSymbols);
  FIn.End("UnitSymbols");
}

template <std::size_t Size>
void TSettingsText::ReadSwitch(const char (&Name)[Size], TCheckBoxSetting& Setting) {
  FIn.Enter(Name);
  Setting.DefEnable = FIn.Boolean("DefEnable");
  Setting.Enable = FIn.Boolean("Enable");
  Setting.DefChecked = FIn.Boolean("DefChecked");
  Setting.Checked = FIn.Boolean("Checked");
  FIn.End(Name);
}

} // namespace

std::optional<TWrittenSettings> ReadWrittenSettings(const std::string& Text) {
  return TSettingsText(Text).Read();
}

} // namespace unitlib
