/// unitctl show: the settings as tables or JSON.
#include "apps/common/TablePrinter.h"
#include "apps/unitctl/Command.h"
#include "apps/unitctl/Names.h"
#include "apps/unitctl/Session.h"
#include "apps/unitctl/ShowJson.h"
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
    Context.ComplainBad("an example of " + Quoted(TManager::CurConfig()->Description) +
                            " cannot be shown: " + Error.what(),
                        {}, NoPlace);
  }
}

std::string SystemTable() {
  TTable Table({{""}, {"No.", TAlign::Right}, {"Unit system"}});
  const auto& Systems = TManager::CurUseUnitConfigContainer();
  for (int I = 0; I < Systems.Count(); ++I)
    Table.Add({Mark(I == TManager::GetCurConfigIndex()), std::to_string(I), ToUtf8(Systems[I].Description)});
  return Table.Text();
}

std::string GroupTable() {
  TTable Table({{""}, {"No.", TAlign::Right}, {"Digit grouping"}});
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
  TTable Table(
      {{"Code", TAlign::Right}, {"Measure"}, {"Unit"}, {"Rounding"}, {"Symbol"}, {"Example", TAlign::Right}});
  for (const auto& Measure : System.MeasureContainer) {
    const TUnit* Unit = Measure->UnitContainer.Find(Measure->CurUnitIndex);
    Table.Add({std::to_string(Measure->ClassifyCode), ToUtf8(Measure->Description),
               Unit ? ToUtf8(Unit->Description) : "-", RoundText(Unit ? Unit->GetCurRound() : nullptr),
               OrDash(Unit ? Unit->GetCurUnitSymbolDescription() : u""), Example(*Measure)});
  }
  return Table.Text();
}

void ShowSettings(TContext& Context, const TSession& Session) {
  std::string Text = "Settings file " + Printable(ToUtf8(TManager::GetUnitConfigFileName())) + "\n\n" +
                     SystemTable() + "\n" + GroupTable();
  if (Session.HasSystem()) {
    ComputeExamples(Context);
    Text += "\n" + MeasureTable(TSession::System());
  } else {
    Text += "\nNo unit system is chosen yet: unitctl use SYSTEM chooses one, --system SYSTEM shows one.\n";
  }
  Context.Print(Text);
}

std::string UnitTable(const TMeasure& Measure) {
  TTable Table({{""}, {"Code", TAlign::Right}, {"Unit"}, {"Symbol for None"}, {"Parser"}});
  for (int I = 0; I < Measure.UnitContainer.Count(); ++I) {
    const TUnit& Unit = Measure.UnitContainer[I];
    Table.Add({Mark(I == Measure.CurUnitIndex), std::to_string(Unit.UnitIdentifyCode),
               ToUtf8(Unit.Description), OrDash(Unit.DefUnitSymbolWhenNone),
               ToUtf8(Unit.UnitParserClassName)});
  }
  return Table.Text();
}

std::string RoundTable(const TUnit& Unit) {
  TTable Table({{""}, {"No.", TAlign::Right}, {"Rounding"}, {"Increment", TAlign::Right}});
  for (int I = 0; I < Unit.RoundContainer.Count(); ++I) {
    const TRound& Round = Unit.RoundContainer[I];
    const std::string Increment =
        Round.Increment.empty() && Round.IncrementCanEdit ? "any" : ToUtf8(Round.Increment);
    Table.Add({Mark(I == Unit.CurRoundIndex), std::to_string(I), ToUtf8(Round.Description), Increment});
  }
  return Table.Text();
}

std::string SymbolTable(const TUnit& Unit) {
  TTable Table({{""}, {"No.", TAlign::Right}, {"Symbol"}});
  for (int I = 0; I < Unit.UnitSymbolContainer.Count(); ++I)
    Table.Add({Mark(I == Unit.CurUnitSymbolIndex), std::to_string(I),
               ToUtf8(Unit.UnitSymbolContainer[I].Description)});
  return Table.Text();
}

std::string SwitchTable(const TUnit& Unit) {
  TTable Table({{"Switch"}, {"State"}, {"Can be changed"}});
  for (const TSwitch& Switch : Switches()) {
    const TCheckBoxSetting& Setting = Unit.*Switch.Setting;
    Table.Add({std::string(Switch.Name), Setting.Checked ? "on" : "off", Setting.Enable ? "yes" : "no"});
  }
  return Table.Text();
}

void ShowMeasure(TContext& Context, const std::string& Name) {
  const TMeasure& Measure = FindMeasure(TSession::System(), Name);
  std::string Text = ToUtf8(Measure.Description) + ", classify code " + std::to_string(Measure.ClassifyCode) +
                     ", in " + ToUtf8(TManager::CurConfig()->Description) + "\n\n" + UnitTable(Measure);
  if (const TUnit* Unit = Measure.UnitContainer.Find(Measure.CurUnitIndex)) {
    Text += "\nSettings of " + ToUtf8(Unit->Description) + "\n";
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

void Show(TContext& Context, const TShowOptions& Options) {
  const TSession Session(Context);
  if (Options.Json && Options.Measure) throw ERefused("--json shows all measures; leave out MEASURE");
  if (Options.Json)
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
      AddCommand(App, "show", "Show systems, measures, units, rounding, symbols and examples",
                 "  unitctl show\n"
                 "  unitctl show Area            what there is to choose from for one measure\n"
                 "  unitctl show --json          everything, for scripts\n"
                 "An asterisk stands before what is in use.");
  AddText(*Command, "MEASURE", Options->Measure,
          "Measure to show in detail, by description, classify code or #position");
  Command->add_flag("--json", Options->Json, "Write JSON");
  Command->callback([&Context, Options] { Show(Context, *Options); });
}

} // namespace unitlib::app
