#include "apps/unitctl/Completion.h"

#include "apps/unitctl/CommandLine.h"
#include "apps/unitctl/NameLists.h"
#include "apps/unitctl/Names.h"
#include "apps/unitctl/Session.h"
#include "unitlib/rtl/Errors.h"
#include "unitlib/rtl/Text.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <map>
#include <optional>

namespace unitlib::app {
namespace {

/// Where the cursor is, found by walking over the words before it.
class TWalk {
public:
  TWalk(CLI::App& Program, TContext& Context) : FContext(Context), FCommand(&Program) {}

  void Step(const std::string& Word) {
    if (const CLI::Option* Option = std::exchange(FOption, nullptr)) return Note(Option, Word);
    if (FOnlyTexts) return Positional(Word);
    if (Word == "--") {
      FOnlyTexts = true;
    } else if (const CLI::Option* Option = Find(Word.substr(0, Word.find('=')))) {
      if (Option->get_items_expected_max() == 0) return;
      if (const std::size_t Equals = Word.find('='); Equals != Word.npos)
        Note(Option, Word.substr(Equals + 1));
      else
        FOption = Option;
    } else if (CLI::App* Command = Subcommand(Word)) {
      FCommand = Command;
    } else if (!IsHelp(Word)) {
      Positional(Word);
    }
  }

  std::vector<std::string> Candidates(const std::string& Word) const {
    if (FOption) return Values(FOption->get_type_name());
    if (!FOnlyTexts && Word.starts_with("--") && Word.find('=') != Word.npos) return AfterEquals(Word);
    if (!FOnlyTexts && Word.starts_with('-')) return Options();
    if (!Subcommands().empty()) return Subcommands();
    const auto Places = Positionals();
    if (Places.empty()) return {};
    return Values(Places[std::min(FPositionals.size(), Places.size() - 1)]->get_name(true, false));
  }

private:
  bool IsHelp(const std::string& Word) const { return Word == "help" && !FCommand->get_parent(); }

  CLI::App* Subcommand(const std::string& Word) const {
    const auto All = FCommand->get_subcommands({});
    const auto Found =
        std::find_if(All.begin(), All.end(), [&](const auto* App) { return App->get_name() == Word; });
    return Found == All.end() ? nullptr : *Found;
  }

  CLI::Option* Find(const std::string& Name) const {
    if (!Name.starts_with('-')) return nullptr;
    for (CLI::App* App = FCommand; App; App = App->get_parent())
      if (CLI::Option* Option = App->get_option_no_throw(Name)) return Option;
    return nullptr;
  }

  std::vector<CLI::Option*> Positionals() const {
    return FCommand->get_options([](const CLI::Option* Option) { return Option->get_positional(); });
  }

  /// Values that names depend on.
  void Note(const CLI::Option* Option, const std::string& Value) {
    if (Option->check_lname("settings")) FContext.SettingsFile = Value;
    if (Option->check_lname("system")) FContext.System = Value;
    if (Option->check_lname("unit")) FUnit = Value;
  }

  void Positional(const std::string& Word) { FPositionals.push_back(Word); }

  std::vector<std::string> Subcommands() const {
    std::vector<std::string> Result;
    for (const CLI::App* Command : FCommand->get_subcommands({}))
      if (!Command->get_group().empty()) Result.push_back(Command->get_name());
    return Result;
  }

  std::vector<std::string> Options() const {
    std::vector<std::string> Result;
    for (CLI::App* App = FCommand; App; App = App->get_parent())
      for (const CLI::Option* Option : App->get_options())
        for (const std::string& Name : Option->get_lnames())
          if (std::find(Result.begin(), Result.end(), "--" + Name) == Result.end())
            Result.push_back("--" + Name);
    return Result;
  }

  std::vector<std::string> AfterEquals(const std::string& Word) const {
    const std::string Name = Word.substr(0, Word.find('='));
    const CLI::Option* Option = Find(Name);
    std::vector<std::string> Result;
    if (Option && Option->get_items_expected_max() > 0)
      for (const std::string& Value : Values(Option->get_type_name()))
        Result.push_back(Value == FileNames ? Value : std::string(Name).append("=").append(Value));
    return Result;
  }

  /// What may stand where help says Kind.
  std::vector<std::string> Values(const std::string& Kind) const {
    static const std::map<std::string, std::string_view> Lists = {
        {"SYSTEM", "systems"}, {"GROUPING", "groups"},    {"MEASURE", "measures"},
        {"UNIT", "units"},     {"ROUNDING", "roundings"}, {"SYMBOL", "symbols"}};
    if (Kind == "FILE" || Kind == "A" || Kind == "B" || Kind == "IN.csv") return {FileNames};
    if (Kind == "KIND") return Kinds();
    if (Kind == "NAME=on|off") return States();
    const auto List = Lists.find(Kind);
    return List == Lists.end() ? std::vector<std::string>() : FromSettings(List->second);
  }

  static std::vector<std::string> Kinds() {
    std::vector<std::string> Result;
    for (const TNameList& List : NameLists()) Result.emplace_back(List.Kind);
    return Result;
  }

  static std::vector<std::string> States() {
    std::vector<std::string> Result;
    for (const TSwitch& Switch : Switches())
      for (const char* const State : {"=on", "=off"}) Result.push_back(std::string(Switch.Name) + State);
    return Result;
  }

  std::vector<std::string> FromSettings(std::string_view Kind) const {
    const auto& Lists = NameLists();
    const auto List = std::find_if(Lists.begin(), Lists.end(), [=](const auto& L) { return L.Kind == Kind; });
    try {
      const TSession Session(FContext);
      return List->Names(List->OfMeasure ? &Measure() : nullptr);
    } catch (const std::exception&) { // no settings, no choice, no such measure: nothing to offer
      return {};
    }
  }

  /// The measure that stands on the line, in the unit that --unit gives it.
  const TMeasure& Measure() const {
    TMeasure& Found = FindMeasure(TSession::System(), FPositionals.empty() ? "" : FPositionals.front());
    if (FUnit) Found.CurUnitIndex = FindUnit(Found, *FUnit);
    return Found;
  }

  TContext& FContext;
  CLI::App* FCommand;
  const CLI::Option* FOption = nullptr; // a value for it comes next
  std::optional<std::string> FUnit;
  std::vector<std::string> FPositionals;
  bool FOnlyTexts = false;
};

/// True when Text begins with Head, letters A to Z folded.
bool BeginsWith(const std::string& Text, const std::string& Head) {
  return Text.size() >= Head.size() && SameText(FromUtf8(Text.substr(0, Head.size())), FromUtf8(Head));
}

} // namespace

std::vector<std::string> Complete(const std::vector<std::string>& Words) {
  if (Words.empty()) return {};
  TContext Context;
  const auto Program = MakeProgram(Context);
  TWalk Walk(*Program, Context);
  for (std::size_t I = 0; I + 1 < Words.size(); ++I) Walk.Step(Words[I]);
  std::vector<std::string> Result = Walk.Candidates(Words.back());
  std::erase_if(
      Result, [&](const std::string& Text) { return Text != FileNames && !BeginsWith(Text, Words.back()); });
  return Result;
}

} // namespace unitlib::app
