#include "apps/unitctl/HelpFormatter.h"

#include "apps/unitctl/ExitStatus.h"
#include "apps/unitctl/Texts.h"

namespace unitlib::app {
namespace {

std::string Indented(const std::string& Lines) {
  std::string Result = "  ";
  for (const char C : Lines) {
    Result += C;
    if (C == '\n') Result += "  ";
  }
  return Result + "\n";
}

} // namespace

TCommandNotes NotesOf(const CLI::App& Command) {
  const std::string All = Command.get_footer();
  const std::size_t Gap = All.find("\n\n");
  return Gap == All.npos ? TCommandNotes{All, {}} : TCommandNotes{All.substr(0, Gap), All.substr(Gap + 2)};
}

THelpFormatter::THelpFormatter() {
  label("Usage", Say("help.usage"));
  label("OPTIONS", Say("help.options-place"));
  label("SUBCOMMAND", Say("help.command-place"));
  label("Positionals", Say("help.arguments"));
  label("REQUIRED", Say("help.required"));
  column_width(28);
}

std::string THelpFormatter::make_help(const CLI::App* Command, std::string Name,
                                      CLI::AppFormatMode Mode) const {
  std::string Result = Command->get_description() + "\n\n" + make_usage(Command, std::move(Name));
  Result += make_positionals(Command);
  // The commands first in the overview: they are what a newcomer looks for.
  Result += make_subcommands(Command, Mode);
  Result += OptionGroup(Say("help.options"), *Command, false);
  if (Command->get_parent()) {
    const CLI::App* Root = Command;
    while (Root->get_parent()) Root = Root->get_parent();
    Result += OptionGroup(Say("help.global-options"), *Root, true);
  }
  const TCommandNotes Notes = NotesOf(*Command);
  if (!Notes.Examples.empty()) Result += "\n" + Say("help.example") + ":\n" + Indented(Notes.Examples);
  if (!Notes.Notes.empty()) Result += "\n" + Notes.Notes + "\n";
  const std::string Exit = ExitLine(Command->get_parent() ? Command->get_name() : "");
  return Exit.empty() ? Result : Result + "\n" + Exit;
}

std::string THelpFormatter::OptionGroup(const std::string& Title, const CLI::App& Command,
                                        bool Global) const {
  std::string Result;
  for (const CLI::Option* Option : Command.get_options(
           [](const CLI::Option* O) { return O->nonpositional() && !O->get_group().empty(); }))
    if (!Global || (Option != Command.get_help_ptr() && Option != Command.get_version_ptr()))
      Result += make_option(Option, false);
  return Result.empty() ? Result : "\n" + Title + ":\n" + Result;
}

} // namespace unitlib::app
