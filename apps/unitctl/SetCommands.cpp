/// unitctl use, set, group, reset: change the settings file through the model.
#include "apps/unitctl/Arguments.h"
#include "apps/unitctl/Command.h"
#include "apps/unitctl/Names.h"
#include "apps/unitctl/Session.h"
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

/// A number above 0, for the fractional units also a fraction of two such numbers.
bool IsIncrement(std::u16string_view Text, bool Fractions) {
  const std::size_t Bar = Fractions ? Text.find(u'/') : Text.npos;
  if (Bar != Text.npos)
    return IsIncrement(Text.substr(0, Bar), false) && IsIncrement(Text.substr(Bar + 1), false);
  double Value = 0;
  return TryStrToFloat(Text, Value) && Value > 0;
}

void SetIncrement(TUnit& Unit, const std::string& Typed) {
  TRound* Round = Unit.GetCurRound();
  if (!Round || !Round->IncrementCanEdit) {
    const std::string Name = Round ? Quoted(Round->Description) : "none";
    throw ERefused("the increment of the rounding " + Name + " of " + Quoted(Unit.Description) +
                   " is fixed; choose one that can be edited, such as  --round Custom --increment " +
                   Printable(Typed));
  }
  const bool Fractional =
      Unit.UnitIdentifyCode == FeetAndFractionalInchCode || Unit.UnitIdentifyCode == FractionalInchCode;
  const std::u16string Text = Trim(FromTerminal(Typed));
  if (!IsIncrement(Text, Fractional))
    throw ERefused("an increment is a number above 0" +
                       std::string(Fractional ? ", or a fraction such as 1/16" : ""),
                   Typed, Fractional ? NoPlace : NumberStop(Typed));
  Round->SetIncrement(Text);
}

/// "NAME=on" or "NAME=off".
void SetSwitch(TUnit& Unit, const std::string& Check) {
  const std::size_t Equals = Check.find('=');
  const std::string State = Equals == Check.npos ? "" : Check.substr(Equals + 1);
  if (State != "on" && State != "off")
    throw ERefused("--check wants NAME=on or NAME=off", Check,
                   Equals == Check.npos ? Check.size() : Equals + 1);
  const TSwitch& Switch = FindSwitch(Check.substr(0, Equals));
  TCheckBoxSetting& Setting = Unit.*Switch.Setting;
  if (!Setting.Enable)
    throw ERefused("the switch " + std::string(Switch.Name) + " cannot be changed for " +
                   Quoted(Unit.Description));
  Setting.Checked = State == "on";
}

/// One line: what a measure is shown in now.
std::string Summary(TMeasure& Measure) {
  const TUnit* Unit = Measure.UnitContainer.Find(Measure.CurUnitIndex);
  std::string Result = Quoted(Measure.Description) + ": ";
  if (!Unit) return Result + "no unit\n";
  Result += ToUtf8(Unit->Description);
  if (const TRound* Round = Unit->GetCurRound()) {
    Result += ", " + ToUtf8(Round->Description);
    if (Round->IncrementCanEdit) Result += " " + ToUtf8(Round->Increment);
  }
  if (const auto& Symbol = Unit->GetCurUnitSymbolDescription(); !Symbol.empty())
    Result += ", symbol " + ToUtf8(Symbol);
  if (TManager::CurConfigMeasure(Measure.ClassifyCode) != &Measure) return Result + "\n";
  // Also a test: settings that cannot show the example are not saved.
  return Result + ", for example " +
         ToUtf8(TMeasureDataManager::StoreToDisplay(Measure.ClassifyCode, StrToFloat(Measure.ExampleValue))) +
         "\n";
}

void Set(TContext& Context, const TSetOptions& Options) {
  if (Options.Empty())
    throw ERefused("nothing to set: give --unit, --round, --increment, --symbol or --check");
  const TSession Session(Context);
  TMeasure& Measure = FindMeasure(TSession::System(), Options.Measure);
  if (Options.Unit) Measure.CurUnitIndex = FindUnit(Measure, *Options.Unit);
  TUnit* Unit = Measure.UnitContainer.Find(Measure.CurUnitIndex);
  if (!Unit) throw ERefused("measure " + Quoted(Measure.Description) + " has no unit yet: add --unit UNIT");
  if (Options.Round) Unit->CurRoundIndex = FindRound(*Unit, *Options.Round);
  if (Options.Increment) SetIncrement(*Unit, *Options.Increment);
  if (Options.Symbol) Unit->CurUnitSymbolIndex = FindSymbol(*Unit, *Options.Symbol);
  for (const std::string& Check : Options.Checks) SetSwitch(*Unit, Check);
  const std::string Text = Summary(Measure);
  Session.Save();
  Context.Print(Text);
}

void Use(TContext& Context, const std::string& System) {
  if (Context.System)
    throw ERefused("unitctl use takes the system as its argument; --system is for one run only");
  TSession Session(Context);
  Session.Choose(FindSystem(System));
  Session.Save();
  Context.Print("now in use: " + ToUtf8(TManager::CurConfig()->Description) + "\n");
}

void Group(TContext& Context, const std::string& Name) {
  const TSession Session(Context);
  TManager::SetCurDigitGroupIndex(FindDigitGroup(Name));
  Session.Save();
  Context.Print("digits are grouped as " + ToUtf8(TManager::CurDigitGroup()->Description) + "\n");
}

void Reset(TContext& Context, const std::vector<std::string>& Measures) {
  const TSession Session(Context);
  TConfig& System = TSession::System();
  std::vector<TMeasure*> Chosen;
  for (const std::string& Name : Measures) Chosen.push_back(&FindMeasure(System, Name));
  std::string Text;
  for (TMeasure* Measure : Chosen) {
    Measure->RestoreDefault();
    Text += Summary(*Measure);
  }
  if (Chosen.empty()) {
    System.RestoreDefault();
    Text = "all measures of " + Quoted(System.Description) + " are back to their defaults\n";
  }
  Session.Save();
  Context.Print(Text);
}

void AddUse(CLI::App& App, TContext& Context) {
  auto System = std::make_shared<std::string>();
  CLI::App* Command = AddCommand(App, "use", "Choose the unit system of the settings file",
                                 "  unitctl use \"Taiwan Metric System\"\n  unitctl use 3");
  AddText(*Command, "SYSTEM", *System, "Unit system, by description or position")->required();
  Command->callback([&Context, System] { Use(Context, *System); });
}

void AddSet(CLI::App& App, TContext& Context) {
  auto Options = std::make_shared<TSetOptions>();
  CLI::App* Command =
      AddCommand(App, "set", "Change how a measure is shown: unit, rounding, symbol, switches",
                 "  unitctl set Area --unit \"Square meters\" --round \"2 decimal places\" --symbol m2\n"
                 "  unitctl set Volume --round Custom --increment 0.25\n"
                 "  unitctl set 3 --unit 11 --check Suppress0Feet=on --check SuppressSpace=on\n"
                 "The unit is changed first, the rest is for the new unit. Nothing is written when any part "
                 "is refused.\n"
                 "Switches: UseProjectSetting, SuppressTrail0, Suppress0Feet, ShowPlusSymbolForPosValue, "
                 "UseDigitGroup,\n"
                 "SuppressSpace. unitctl show MEASURE lists what there is to choose from.");
  const auto Add = [Command](const char* Name, auto& Value, const char* Type, const char* Description) {
    return Command->add_option(Name, Value, Description)->type_name(Type)->transform(UnguardText);
  };
  AddText(*Command, "MEASURE", Options->Measure, "Measure, by description, classify code or #position")
      ->required();
  Add("--unit", Options->Unit, "UNIT", "Unit, by description or unit code");
  Add("--round", Options->Round, "ROUNDING", "Rounding, by description or position in its list");
  Add("--increment", Options->Increment, "NUMBER", "Increment of a rounding that can be edited (Custom)");
  Add("--symbol", Options->Symbol, "SYMBOL", "Unit symbol, by description or position in its list");
  Add("--check", Options->Checks, "NAME=on|off", "Format switch; may be given several times")
      ->expected(1)
      ->allow_extra_args(false)
      ->take_all();
  Command->callback([&Context, Options] { Set(Context, *Options); });
}

void AddGroup(CLI::App& App, TContext& Context) {
  auto Name = std::make_shared<std::string>();
  CLI::App* Command = AddCommand(App, "group", "Choose how digits are grouped, for all measures",
                                 "  unitctl group 1,2345,6789.00\n  unitctl group 0");
  AddText(*Command, "GROUPING", *Name, "Digit grouping, by description or position")->required();
  Command->callback([&Context, Name] { Group(Context, *Name); });
}

void AddReset(CLI::App& App, TContext& Context) {
  auto Measures = std::make_shared<std::vector<std::string>>();
  CLI::App* Command =
      AddCommand(App, "reset", "Bring measures back to their defaults (without any: all of the system)",
                 "  unitctl reset Area \"Mass Density\"\n"
                 "Restored are the unit that is current and the default unit of a measure; settings of its\n"
                 "other units and typed increments stay.");
  AddTexts(*Command, "MEASURE", *Measures, "Measures, by description, classify code or #position");
  Command->callback([&Context, Measures] { Reset(Context, *Measures); });
}

} // namespace

void AddSetCommands(CLI::App& App, TContext& Context) {
  AddUse(App, Context);
  AddSet(App, Context);
  AddGroup(App, Context);
  AddReset(App, Context);
}

} // namespace unitlib::app
