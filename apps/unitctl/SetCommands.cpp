/// unitctl use, set, group, reset: change the settings file through the model.
#include "apps/unitctl/Arguments.h"
#include "apps/unitctl/Command.h"
#include "apps/unitctl/Increments.h"
#include "apps/unitctl/Names.h"
#include "apps/unitctl/Session.h"
#include "apps/unitctl/Texts.h"
#include "unitlib/convert/ZELUnitConvertor.h"
#include "unitlib/rtl/Errors.h"
#include "unitlib/rtl/Numbers.h"
#include "unitlib/rtl/Text.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <optional>

namespace unitlib::app {
namespace {

using TManager = TSystemUnitDataManager;

struct TSetOptions {
  std::string Measure;
  std::optional<std::string> Unit;
  std::optional<std::string> Round;
  std::optional<std::string> Increment;
  std::optional<std::string> Symbol;
  std::vector<std::string> Checks;

  bool Empty() const { return !Unit && !Round && !Increment && !Symbol && Checks.empty(); }
};

void SetIncrement(TUnit& Unit, const std::string& Typed) {
  TRound* Round = Unit.GetCurRound();
  if (!Round || !Round->IncrementCanEdit) {
    const std::string Name = Round ? Quoted(Round->Description) : Say("set.none");
    throw ERefused(Say("set.fixed", Name, Quoted(Unit.Description), Printable(Typed)));
  }
  const bool Fractional = IsFractional(Unit);
  const std::u16string Text = Trim(FromTerminal(Typed));
  if (!IsIncrement(Text, Fractional))
    throw ERefused(Fractional ? Say("set.fraction") : Say("set.increment"), Typed,
                   Fractional ? NoPlace : NumberStop(Typed));
  Round->SetIncrement(Text);
}

/// "NAME=on" or "NAME=off".
void SetSwitch(TUnit& Unit, const std::string& Check) {
  const std::size_t Equals = Check.find('=');
  const std::string State = Equals == Check.npos ? "" : Check.substr(Equals + 1);
  if (State != "on" && State != "off")
    throw ERefused(Say("set.state"), Check, Equals == Check.npos ? Check.size() : Equals + 1);
  const TSwitch& Switch = FindSwitch(Check.substr(0, Equals));
  TCheckBoxSetting& Setting = Unit.*Switch.Setting;
  if (!Setting.Enable) throw ERefused(Say("set.locked", Switch.Name, Quoted(Unit.Description)));
  Setting.Checked = State == "on";
}

/// One line: what a measure is shown in now.
std::string Summary(TMeasure& Measure) {
  const TUnit* Unit = Measure.UnitContainer.Find(Measure.CurUnitIndex);
  std::string Result = Quoted(Measure.Description) + ": ";
  if (!Unit) return Result + Say("set.summary-none") + "\n";
  Result += ToUtf8(Unit->Description);
  if (const TRound* Round = Unit->GetCurRound()) {
    Result += ", " + ToUtf8(Round->Description);
    if (Round->IncrementCanEdit) Result += " " + ToUtf8(Round->Increment);
  }
  if (const auto& Symbol = Unit->GetCurUnitSymbolDescription(); !Symbol.empty())
    Result += Say("set.summary-symbol", ToUtf8(Symbol));
  if (TManager::CurConfigMeasure(Measure.ClassifyCode) != &Measure) return Result + "\n";
  // Also a test: settings that cannot show the example are not saved.
  const std::u16string Example =
      TMeasureDataManager::StoreToDisplay(Measure.ClassifyCode, StrToFloat(Measure.ExampleValue));
  return Result + Say("set.summary-example", ToUtf8(Example)) + "\n";
}

void Set(TContext& Context, const TSetOptions& Options) {
  if (Options.Empty()) throw ERefused(Say("set.nothing"));
  const TSession Session(Context);
  TMeasure& Measure = FindMeasure(TSession::System(), Options.Measure);
  if (Options.Unit) Measure.CurUnitIndex = FindUnit(Measure, *Options.Unit);
  TUnit* Unit = Measure.UnitContainer.Find(Measure.CurUnitIndex);
  if (!Unit) throw ERefused(Say("set.no-unit", Quoted(Measure.Description)));
  if (Options.Round) Unit->CurRoundIndex = FindRound(*Unit, *Options.Round);
  if (Options.Increment) SetIncrement(*Unit, *Options.Increment);
  if (Options.Symbol) Unit->CurUnitSymbolIndex = FindSymbol(*Unit, *Options.Symbol);
  for (const std::string& Check : Options.Checks) SetSwitch(*Unit, Check);
  const std::string Text = Summary(Measure);
  Session.Save();
  Context.Print(Text);
}

void Use(TContext& Context, const std::string& System) {
  if (Context.System) throw ERefused(Say("use.twice"));
  TSession Session(Context);
  Session.Choose(FindSystem(System));
  Session.Save();
  Context.Print(Say("use.done", ToUtf8(TManager::CurConfig()->Description)) + "\n");
}

void Group(TContext& Context, const std::string& Name) {
  const TSession Session(Context);
  TManager::SetCurDigitGroupIndex(FindDigitGroup(Name));
  Session.Save();
  Context.Print(Say("group.done", ToUtf8(TManager::CurDigitGroup()->Description)) + "\n");
}

void Reset(TContext& Context, const std::vector<std::string>& Measures) {
  const TSession Session(Context);
  TConfig& System = TSession::System();
  std::vector<TMeasure*> Chosen;
  Chosen.reserve(Measures.size());
  for (const std::string& Name : Measures) Chosen.push_back(&FindMeasure(System, Name));
  std::string Text;
  for (TMeasure* Measure : Chosen) {
    Measure->RestoreDefault();
    Text += Summary(*Measure);
  }
  if (Chosen.empty()) {
    System.RestoreDefault();
    Text = Say("reset.done", Quoted(System.Description)) + "\n";
  }
  Session.Save();
  Context.Print(Text);
}

void AddSet(CLI::App& App, TContext& Context) {
  auto Options = std::make_shared<TSetOptions>();
  CLI::App* Command =
      AddCommand(App, "set", Say("help.group.settings"), Say("help.set"),
                 "unitctl set Area --unit \"Square meters\" --round \"2 decimal places\" --symbol m2\n"
                 "unitctl set Volume --round Custom --increment 0.25\n"
                 "unitctl set 3 --unit 11 --check Suppress0Feet=on --check SuppressSpace=on",
                 Say("help.set.notes"));
  const auto Add = [Command](const char* Name, auto& Value, const char* Type,
                             const std::string& Description) {
    return Command->add_option(Name, Value, Description)->type_name(Type)->transform(UnguardText);
  };
  AddText(*Command, "MEASURE", Options->Measure, Say("option.measure-position"))->required();
  Add("--unit", Options->Unit, "UNIT", Say("option.set.unit"));
  Add("--round", Options->Round, "ROUNDING", Say("option.set.round"));
  Add("--increment", Options->Increment, "NUMBER", Say("option.set.increment"));
  Add("--symbol", Options->Symbol, "SYMBOL", Say("option.set.symbol"));
  Add("--check", Options->Checks, "NAME=on|off", Say("option.set.check"))
      ->expected(1)
      ->allow_extra_args(false)
      ->take_all();
  Command->callback([&Context, Options] { Set(Context, *Options); });
}

void AddGroup(CLI::App& App, TContext& Context) {
  auto Name = std::make_shared<std::string>();
  CLI::App* Command = AddCommand(App, "group", Say("help.group.settings"), Say("help.group"),
                                 "unitctl group 1,2345,6789.00\nunitctl group 0");
  AddText(*Command, "GROUPING", *Name, Say("option.grouping"))->required();
  Command->callback([&Context, Name] { Group(Context, *Name); });
}

void AddReset(CLI::App& App, TContext& Context) {
  auto Measures = std::make_shared<std::vector<std::string>>();
  CLI::App* Command = AddCommand(App, "reset", Say("help.group.settings"), Say("help.reset"),
                                 "unitctl reset Area \"Mass Density\"", Say("help.reset.notes"));
  AddTexts(*Command, "MEASURE", *Measures, Say("option.measures"));
  Command->callback([&Context, Measures] { Reset(Context, *Measures); });
}

} // namespace

void AddUseCommand(CLI::App& App, TContext& Context) {
  auto System = std::make_shared<std::string>();
  CLI::App* Command = AddCommand(App, "use", Say("help.group.start"), Say("help.use"),
                                 "unitctl use \"Taiwan Metric System\"\nunitctl use 3");
  AddText(*Command, "SYSTEM", *System, Say("option.system-argument"))->required();
  Command->callback([&Context, System] { Use(Context, *System); });
}

void AddSetCommands(CLI::App& App, TContext& Context) {
  AddSet(App, Context);
  AddGroup(App, Context);
  AddReset(App, Context);
}

} // namespace unitlib::app
