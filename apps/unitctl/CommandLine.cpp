#include "apps/unitctl/CommandLine.h"

#include "apps/common/Platform.h"
#include "apps/unitctl/Arguments.h"
#include "apps/unitctl/ExitStatus.h"
#include "apps/unitctl/HelpFormatter.h"
#include "apps/unitctl/Texts.h"
#include "unitlib/model/ZELUnitMgr.h"
#include "unitlib/rtl/Errors.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <exception>
#include <new>
#include <sstream>

namespace unitlib::app {
namespace {

constexpr const char* FirstSteps = "unitctl init --system \"US Imperial System\"\n"
                                   "unitctl show\n"
                                   "unitctl format 0 1676.4 -1676.4";

void AddGlobalOptions(CLI::App& App, TContext& Context) {
  App.set_help_flag("-h,--help", Say("option.help"));
  const auto Add = [&App](const char* Name, auto& Value, const char* Type, const std::string& Description) {
    App.add_option(Name, Value, Description)->type_name(Type)->transform(UnguardText);
  };
  Add("--settings", Context.SettingsFile, "FILE", Say("option.settings"));
  Add("--system", Context.System, "SYSTEM", Say("option.system"));
  Add("--texts", Context.TextsFile, "FILE", Say("option.texts"));
  App.set_version_flag("--version", "unitctl " UNITLIB_VERSION, Say("option.version"));
}

/// In the order a newcomer needs them; help shows them in their groups.
void AddCommands(CLI::App& App, TContext& Context) {
  AddInitCommand(App, Context);
  AddUseCommand(App, Context);
  AddShowCommand(App, Context);
  AddConvertCommands(App, Context);
  AddExplainCommand(App, Context);
  AddScheduleCommand(App, Context);
  AddCompareCommand(App, Context);
  AddExpressionCommands(App, Context);
  AddSetCommands(App, Context);
  AddDialogCommand(App, Context);
  AddDoctorCommand(App, Context);
  AddDiffCommand(App, Context);
  AddNamesCommand(App, Context);
  AddTextsCommand(App, Context);
  AddCompleteCommand(App, Context);
}

/// The message of a wrong command line in the language of the run, where it is one of the usual ones.
std::string UsageProblem(const CLI::ParseError& Error) {
  std::string Message = Error.what();
  Message.erase(std::remove(Message.begin(), Message.end(), '\x1F'), Message.end()); // see Arguments.h
  const auto Behind = [&Message](std::string_view Mark) {
    return Printable(
        Message.substr(std::min(Message.find(Mark), Message.size() - Mark.size()) + Mark.size()));
  };
  constexpr std::string_view Required = " is required",
                             Convert = "Could not convert: ", Surplus = "expected: ";
  if (dynamic_cast<const CLI::RequiredError*>(&Error) && Message.ends_with(Required))
    return Say("usage.missing", Message.substr(0, Message.size() - Required.size()));
  if (dynamic_cast<const CLI::ConversionError*>(&Error) && Message.starts_with(Convert))
    return Say("usage.number", Behind(Convert));
  if (dynamic_cast<const CLI::ExtrasError*>(&Error) && Message.find(Surplus) != Message.npos)
    return Say("usage.surplus", Behind(Surplus));
  return Printable(Message);
}

/// Help and version go to standard output, everything else is wrong usage.
void FinishParse(CLI::App& App, const TContext& Context, const CLI::ParseError& Error) {
  if (Error.get_exit_code() != 0) throw ERefused(Say("usage.more", UsageProblem(Error)));
  std::ostringstream Out;
  std::ostringstream Ignored;
  App.exit(Error, Out, Ignored);
  Context.Print(Out.str());
}

/// "help format" is another way to say "format --help".
std::vector<std::string> WithoutHelpCommand(std::vector<std::string> Arguments) {
  if (Arguments.front() != "help") return Arguments;
  Arguments.erase(Arguments.begin());
  Arguments.emplace_back("--help");
  return Arguments;
}

void Parse(CLI::App& App, TContext& Context, const std::vector<std::string>& Arguments) {
  if (Arguments.empty()) throw ERefused(Say("usage.no-command"));
  std::vector<std::string> Prepared = PrepareArguments(App, WithoutHelpCommand(Arguments), Context.Command);
  std::reverse(Prepared.begin(), Prepared.end()); // the parser takes them from the end
  try {
    App.parse(Prepared);
  } catch (const CLI::ParseError& Error) {
    FinishParse(App, Context, Error);
  }
  Context.Print({}); // what is still held back must have reached its place
}

/// The file of --texts or of the environment. Needed before all else: every text comes from it.
std::string TextsPath(const std::vector<std::string>& Arguments) {
  constexpr std::string_view Option = "--texts";
  for (std::size_t I = 0; I < Arguments.size() && Arguments[I] != "--"; ++I) {
    const std::string& Argument = Arguments[I];
    if (Argument == Option && I + 1 < Arguments.size()) return Arguments[I + 1];
    if (Argument.starts_with(Option) && Argument.substr(Option.size(), 1) == "=")
      return Argument.substr(Option.size() + 1);
  }
  return platform::Environment("UNITLIB_TEXTS");
}

void Run(TContext& Context, const std::vector<std::string>& Arguments) {
  Context.TextsPath = TextsPath(Arguments);
  if (!Context.TextsPath.empty()) LoadTexts(Context.TextsPath);
  Parse(*MakeProgram(Context), Context, Arguments);
}

void RunGuarded(TContext& Context, const std::vector<std::string>& Arguments) {
  try {
    return Run(Context, Arguments);
  } catch (const ERefused& Refused) {
    Context.Complain(Refused.what(), Refused.Text(), Refused.Place());
  } catch (const std::bad_alloc&) {
    Context.Complain(Say("usage.memory"));
  } catch (const std::exception& Error) { // the library's errors too
    Context.Complain(Printable(Error.what()));
  }
  Context.ExitCode = FailureStatus(Context.Command);
}

} // namespace

std::unique_ptr<CLI::App> MakeProgram(TContext& Context) {
  auto App = std::make_unique<CLI::App>(Say("help.program"), "unitctl");
  App->formatter(std::make_shared<THelpFormatter>()); // before the commands, which inherit it
  App->require_subcommand(1);
  App->footer(FirstSteps + ("\n\n" + Say("help.notes")));
  AddGlobalOptions(*App, Context);
  AddCommands(*App, Context);
  return App;
}

int RunUnitctl(const std::vector<std::string>& Arguments, const TStreams& Streams) {
  TContext Context;
  Context.Streams = Streams;
  RunGuarded(Context, Arguments);
  FreeUnitSystem();
  LoadTexts({});
  std::fflush(Streams.Err);
  return Context.ExitCode;
}

} // namespace unitlib::app
