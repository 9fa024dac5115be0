#include "apps/unitctl/Arguments.h"

#include "apps/common/NearestName.h"
#include "apps/unitctl/Command.h"
#include "apps/unitctl/Texts.h"

#include <CLI/CLI.hpp>

#include <algorithm>

namespace unitlib::app {
namespace {

/// Stands before every text. No terminal types it, and the parser has no meaning for it.
constexpr char Guard = '\x1F';

bool IsLetter(char C) {
  return (C >= 'a' && C <= 'z') || (C >= 'A' && C <= 'Z');
}

bool IsLongOption(const std::string& Argument) {
  return Argument.size() > 2 && Argument.starts_with("--") && IsLetter(Argument[2]);
}

/// The option of that name in a command or the commands it belongs to.
CLI::Option* FindOption(CLI::App* Command, const std::string& Name) {
  for (; Command; Command = Command->get_parent())
    if (CLI::Option* Found = Command->get_option_no_throw(Name)) return Found;
  return nullptr;
}

std::vector<std::string> OptionNames(CLI::App* Command) {
  std::vector<std::string> Result;
  for (; Command; Command = Command->get_parent())
    for (const CLI::Option* Option : Command->get_options())
      for (const std::string& Name : Option->get_lnames()) Result.push_back("--" + Name);
  return Result;
}

std::vector<std::string> CommandNames(CLI::App* Command) {
  std::vector<std::string> Result;
  for (const CLI::App* Sub : Command->get_subcommands({})) Result.push_back(Sub->get_name());
  return Result;
}

/// The walk over the arguments.
class TPreparation {
public:
  TPreparation(CLI::App& App, const std::vector<std::string>& Arguments, std::string& Name)
      : FCommand(&App), FArguments(Arguments), FName(Name) {}

  std::vector<std::string> Run() {
    bool OnlyTexts = false;
    while (FNext < FArguments.size()) {
      const std::string& Argument = FArguments[FNext++];
      if (OnlyTexts)
        AddText(Argument);
      else if (Argument == "--")
        OnlyTexts = true;
      else if (IsLongOption(Argument))
        AddLongOption(Argument);
      else if (!AddShortOption(Argument))
        AddCommandOrText(Argument);
    }
    return FResult;
  }

private:
  void AddText(const std::string& Argument) { FResult.push_back(Guard + Argument); }

  void AddValue(const CLI::Option* Option, const std::string& Name, std::string Value) {
    FResult.push_back(Name);
    if (Option->get_items_expected_max() > 0) FResult.push_back(Guard + std::move(Value));
  }

  std::string TakeValue(const CLI::Option* Option, const std::string& Name) {
    if (Option->get_items_expected_max() == 0) return {};
    if (FNext == FArguments.size()) throw ERefused(Say("usage.option-value", Name, FCommand->get_name()));
    return FArguments[FNext++];
  }

  void AddLongOption(const std::string& Argument) {
    const std::size_t Equals = Argument.find('=');
    const std::string Name = Argument.substr(0, Equals);
    const CLI::Option* Option = FindOption(FCommand, Name);
    if (!Option)
      throw ERefused(Say("usage.unknown-option", Printable(Name), Nearest(Name, OptionNames(FCommand))));
    if (Equals == std::string::npos) {
      AddValue(Option, Name, TakeValue(Option, Name));
      return;
    }
    if (Option->get_items_expected_max() == 0) throw ERefused(Say("usage.option-no-value", Name));
    AddValue(Option, Name, Argument.substr(Equals + 1));
  }

  /// "-o FILE", "-oFILE" and "-h". In commands without a short option of that letter it is a text.
  bool AddShortOption(const std::string& Argument) {
    if (Argument.size() < 2 || Argument[0] != '-' || !IsLetter(Argument[1])) return false;
    const std::string Name = Argument.substr(0, 2);
    const CLI::Option* Option = FindOption(FCommand, Name);
    if (!Option) return false;
    const bool TakesValue = Option->get_items_expected_max() > 0;
    if (Argument.size() > 2 && !TakesValue) return false;
    AddValue(Option, Name, Argument.size() > 2 ? Argument.substr(2) : TakeValue(Option, Name));
    return true;
  }

  void AddCommandOrText(const std::string& Argument) {
    const std::vector<std::string> Names = CommandNames(FCommand);
    if (Names.empty()) return AddText(Argument);
    if (std::find(Names.begin(), Names.end(), Argument) == Names.end())
      throw ERefused(Say("usage.unknown-command", Quoted(Argument), Nearest(Argument, Names)));
    FResult.push_back(Argument);
    if (FName.empty()) FName = Argument;
    FCommand = FCommand->get_subcommand(Argument);
  }

  static std::string Nearest(const std::string& Typed, const std::vector<std::string>& Known) {
    return Known[NearestName(Typed, Known)];
  }

  CLI::App* FCommand;
  const std::vector<std::string>& FArguments;
  std::string& FName;
  std::size_t FNext = 0;
  std::vector<std::string> FResult;
};

} // namespace

std::vector<std::string> PrepareArguments(CLI::App& App, const std::vector<std::string>& Arguments,
                                          std::string& Command) {
  return TPreparation(App, Arguments, Command).Run();
}

std::string UnguardText(std::string Text) {
  if (!Text.empty() && Text.front() == Guard) Text.erase(0, 1);
  return Text;
}

} // namespace unitlib::app
