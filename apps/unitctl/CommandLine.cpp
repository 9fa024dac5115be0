#include "apps/unitctl/CommandLine.h"

#include "apps/unitctl/Arguments.h"
#include "unitlib/model/ZELUnitMgr.h"
#include "unitlib/rtl/Errors.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <exception>
#include <new>
#include <sstream>

namespace unitlib::app {
namespace {

constexpr const char* Footer =
    "Measures are named by description or by classify code, the number that conversions use (\"#3\" is the "
    "one at\n"
    "position 3 of the list); systems by description or position; units by description or unit code. A "
    "stored value is\n"
    "a number in the base unit: mm, mm2, mm3, kg, kg/m3, m3/m.\n"
    "\n"
    "Exit status: 0 all is well, 1 wrong usage or an error, 2 some rows, values or texts were bad.\n"
    "\n"
    "First steps:\n"
    "  unitctl init --system \"US Imperial System\"\n"
    "  unitctl show\n"
    "  unitctl format 0 1676.4 -1676.4";

void AddGlobalOptions(CLI::App& App, TContext& Context) {
  App.add_option("--settings", Context.SettingsFile,
                 "Settings file (default: UnitConfig.xml beside the program)")
      ->type_name("FILE")
      ->transform(UnguardText);
  App.add_option("--system", Context.System, "Unit system for this run, by description or position")
      ->type_name("SYSTEM")
      ->transform(UnguardText);
  App.set_version_flag("--version", "unitctl " UNITLIB_VERSION);
}

void AddCommands(CLI::App& App, TContext& Context) {
  AddInitCommand(App, Context);
  AddShowCommand(App, Context);
  AddSetCommands(App, Context);
  AddConvertCommands(App, Context);
  AddScheduleCommand(App, Context);
  AddCompareCommand(App, Context);
  AddExpressionCommands(App, Context);
  AddExplainCommand(App, Context);
}

/// Help and version go to standard output, everything else is wrong usage.
int FinishParse(CLI::App& App, const TContext& Context, const CLI::ParseError& Error) {
  if (Error.get_exit_code() != 0) {
    std::string Message = Error.what();
    Message.erase(std::remove_if(Message.begin(), Message.end(), [](unsigned char C) { return C == 0x1F; }),
                  Message.end());
    Context.Complain(Printable(Message) + " (--help tells more)");
    return ExitError;
  }
  std::ostringstream Out;
  std::ostringstream Ignored;
  App.exit(Error, Out, Ignored);
  Context.Print(Out.str());
  return ExitOk;
}

/// "help format" is another way to say "format --help".
std::vector<std::string> WithoutHelpCommand(std::vector<std::string> Arguments) {
  if (Arguments.front() != "help") return Arguments;
  Arguments.erase(Arguments.begin());
  Arguments.emplace_back("--help");
  return Arguments;
}

int Parse(CLI::App& App, TContext& Context, const std::vector<std::string>& Arguments) {
  if (Arguments.empty()) {
    Context.Complain("a command is needed: unitctl --help lists them");
    return ExitError;
  }
  std::vector<std::string> Prepared = PrepareArguments(App, WithoutHelpCommand(Arguments));
  std::reverse(Prepared.begin(), Prepared.end()); // the parser takes them from the end
  try {
    App.parse(Prepared);
  } catch (const CLI::ParseError& Error) {
    return FinishParse(App, Context, Error);
  }
  Context.Print({}); // what is still held back must have reached its place
  return Context.ExitCode;
}

int ParseGuarded(CLI::App& App, TContext& Context, const std::vector<std::string>& Arguments) {
  try {
    return Parse(App, Context, Arguments);
  } catch (const ERefused& Refused) {
    Context.Complain(Refused.what(), Refused.Text(), Refused.Place());
  } catch (const EUnitError& Error) {
    Context.Complain(Printable(Error.what()));
  } catch (const std::bad_alloc&) {
    Context.Complain("not enough memory");
  } catch (const std::exception& Error) {
    Context.Complain(Printable(Error.what()));
  }
  return ExitError;
}

} // namespace

int RunUnitctl(const std::vector<std::string>& Arguments, const TStreams& Streams) {
  TContext Context;
  Context.Streams = Streams;
  CLI::App App("Project units at the command line: settings, conversions, schedules, typed arithmetic.",
               "unitctl");
  App.require_subcommand(1);
  App.footer(Footer);
  AddGlobalOptions(App, Context);
  AddCommands(App, Context);
  const int ExitCode = ParseGuarded(App, Context, Arguments);
  FreeUnitSystem();
  std::fflush(Streams.Err);
  return ExitCode;
}

} // namespace unitlib::app
