/// unitctl show: the settings as tables or JSON.
#include "apps/common/TablePrinter.h"
#include "apps/unitctl/Command.h"
#include "apps/unitctl/Names.h"
#include "apps/unitctl/Session.h"
#include "apps/unitctl/ShowJson.h"
#include "apps/unitctl/Texts.h"
#include "unitlib/rtl/Errors.h"
#include "unitlib/rtl/Text.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace unitlib::app {
namespace {

using TManager = TSystemUnitDataManager;

struct TShowOptions {
  std::optional<std::string> Measure;
  bool Json = false;
};

/// The mark before what is in use.
std::string Mark(bool Current) {
  return Current ? "*" : "";
}

/// Computes the examples of the current system. One that fails stays empty and is reported.
void ComputeExamples(TContext& Context) {
  try {
    TManager::UpdateDispalyValue();
  } catch (const EUnitError& Error) {
    Context.ComplainBad(Say("show.example", Quoted(TManager::CurConfig()->Description), Error.what()), {},
                        NoPlace);
  }
}

std::string SystemTable() {
  TTable Table({{""}, {Say("column.number"), TAlign::Right}, {Say("column.system")}});
  const auto& Systems = TManager::CurUseUnitConfigContainer();
  for (int I = 0; I < Systems.Count(); ++I)
    Table.Add({Mark(I == TManager::GetCurConfigIndex()), std::to_string(I), ToUtf8(Systems[I].Description)});
  return Table.Text();
}

std::string GroupTable() {
  TTable Table({{""}, {Say("column.number"), TAlign::Right}, {Say("column.group")}});
  for (int I = 0; I < TManager::DigitGroupCount(); ++I)
    Table.Add({Mark(I == TManager::GetCurDigitGroupIndex()), std::to_string(I),
               ToUtf8(TManager::DigitGroup(I)->Description)});
  return Table.Text();
}

std::string RoundText(const TRound* Round) {
  if (!Round) return "-";
  const std::string Description = ToUtf8(Round->Description);
  return Round->IncrementCanEdit && !Round->Increment.empty() ? Description + " " + ToUtf8(Round->Increment)
                                                              : Description;
}

std::string OrDash(std::u16string_view Text) {
  return Text.empty() ? "-" : ToUtf8(Text);
}

/// The example is shown where conversions reach the measure; behind another one of the same code it would be
/// the other one's.
std::string Example(const TMeasure& Measure) {
  return TManager::CurConfigMeasure(Measure.ClassifyCode) == &Measure ? OrDash(Measure.ExampleDisplayValue)
                                                                      : "-";
}

std::string MeasureTable(const TConfig& System) {
  TTable Table({{Say("column.code"), TAlign::Right},
                {Say("column.measure")},
                {Say("column.unit")},
                {Say("column.rounding")},
                {Say("column.symbol")},
                {Say("column.example"), TAlign::Right}});
  for (const auto& Measure : System.MeasureContainer) {
    const TUnit* Unit = Measure->UnitContainer.Find(Measure->CurUnitIndex);
    Table.Add({std::to_string(Measure->ClassifyCode), ToUtf8(Measure->Description),
               Unit ? ToUtf8(Unit->Description) : "-", RoundText(Unit ? Unit->GetCurRound() : nullptr),
               OrDash(Unit ? Unit->GetCurUnitSymbolDescription() : u""), Example(*Measure)});
  }
  return Table.Text();
}

void ShowSettings(TContext& Context, const TSession& Session) {
  std::string Text = Say("show.file", Printable(ToUtf8(TManager::GetUnitConfigFileName()))) + "\n\n" +
                     SystemTable() + "\n" + GroupTable();
  if (Session.HasSystem()) {
    ComputeExamples(Context);
    Text += "\n" + MeasureTable(TSession::System());
  } else {
    Text += "\n" + Say("show.no-choice") + "\n";
  }
  Context.Print(Text);
}

std::string UnitTable(const TMeasure& Measure) {
  TTable Table({{""},
                {Say("column.code"), TAlign::Right},
                {Say("column.unit")},
                {Say("column.symbol-when-none")},
                {Say("column.parser")}});
  for (int I = 0; I < Measure.UnitContainer.Count(); ++I) {
    const TUnit& Unit = Measure.UnitContainer[I];
    Table.Add({Mark(I == Measure.CurUnitIndex), std::to_string(Unit.UnitIdentifyCode),
               ToUtf8(Unit.Description), OrDash(Unit.DefUnitSymbolWhenNone),
               ToUtf8(Unit.UnitParserClassName)});
  }
  return Table.Text();
}

std::string RoundTable(const TUnit& Unit) {
  TTable Table({{""},
                {Say("column.number"), TAlign::Right},
                {Say("column.rounding")},
                {Say("column.increment"), TAlign::Right}});
  for (int I = 0; I < Unit.RoundContainer.Count(); ++I) {
    const TRound& Round = Unit.RoundContainer[I];
    const std::string Increment =
        Round.Increment.empty() && Round.IncrementCanEdit ? Say("show.any") : ToUtf8(Round.Increment);
    Table.Add({Mark(I == Unit.CurRoundIndex), std::to_string(I), ToUtf8(Round.Description), Increment});
  }
  return Table.Text();
}

std::string SymbolTable(const TUnit& Unit) {
  TTable Table({{""}, {Say("column.number"), TAlign::Right}, {Say("column.symbol")}});
  for (int I = 0; I < Unit.UnitSymbolContainer.Count(); ++I)
    Table.Add({Mark(I == Unit.CurUnitSymbolIndex), std::to_string(I),
               ToUtf8(Unit.UnitSymbolContainer[I].Description)});
  return Table.Text();
}

std::string SwitchTable(const TUnit& Unit) {
  TTable Table({{Say("column.switch")}, {Say("column.state")}, {Say("column.changeable")}});
  for (const TSwitch& Switch : Switches()) {
    const TCheckBoxSetting& Setting = Unit.*Switch.Setting;
    Table.Add({std::string(Switch.Name), Setting.Checked ? Say("show.on") : Say("show.off"),
               Setting.Enable ? Say("show.yes") : Say("show.no")});
  }
  return Table.Text();
}

void ShowMeasure(TContext& Context, const std::string& Name) {
  const TMeasure& Measure = FindMeasure(TSession::System(), Name);
  std::string Text = Say("show.measure", ToUtf8(Measure.Description), std::to_string(Measure.ClassifyCode),
                         ToUtf8(TManager::CurConfig()->Description)) +
                     "\n\n" + UnitTable(Measure);
  if (const TUnit* Unit = Measure.UnitContainer.Find(Measure.CurUnitIndex)) {
    Text += "\n" + Say("show.unit", ToUtf8(Unit->Description)) + "\n";
    if (Unit->RoundContainer.Count() > 0) Text += "\n" + RoundTable(*Unit);
    if (Unit->UnitSymbolContainer.Count() > 0) Text += "\n" + SymbolTable(*Unit);
    Text += "\n" + SwitchTable(*Unit);
  }
  Context.Print(Text);
}

void ShowJson(TContext& Context, const TSession& Session) {
  const int Current = TManager::GetCurConfigIndex();
  for (int I = 0; I < TManager::CurUseUnitConfigContainer().Count(); ++I) {
    TManager::SetCurConfig(I);
    ComputeExamples(Context);
  }
  TManager::SetCurConfig(Current);
  Context.Print(SettingsAsJson(ToUtf8(TManager::GetUnitConfigFileName()), Session.ChosenSystem()));
}

void ShowMeasureJson(TContext& Context, const std::string& Name) {
  const TMeasure& Measure = FindMeasure(TSession::System(), Name);
  ComputeExamples(Context);
  Context.Print(MeasureAsJson(TSession::System(), Measure));
}

void Show(TContext& Context, const TShowOptions& Options) {
  const TSession Session(Context);
  if (Options.Json && Options.Measure)
    ShowMeasureJson(Context, *Options.Measure);
  else if (Options.Json)
    ShowJson(Context, Session);
  else if (Options.Measure)
    ShowMeasure(Context, *Options.Measure);
  else
    ShowSettings(Context, Session);
}

} // namespace

void AddShowCommand(CLI::App& App, TContext& Context) {
  auto Options = std::make_shared<TShowOptions>();
  CLI::App* Command =
      AddCommand(App, "show", Say("help.group.start"), Say("help.show"),
                 "unitctl show\nunitctl show Area\nunitctl show --json", Say("help.show.notes"));
  AddText(*Command, "MEASURE", Options->Measure, Say("option.show.measure"));
  Command->add_flag("--json", Options->Json, Say("option.json"));
  Command->callback([&Context, Options] { Show(Context, *Options); });
}

} // namespace unitlib::app
