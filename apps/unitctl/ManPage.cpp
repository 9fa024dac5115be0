#include "apps/unitctl/ManPage.h"

#include "apps/unitctl/CommandLine.h"
#include "apps/unitctl/HelpFormatter.h"
#include "apps/unitctl/Texts.h"

#include <CLI/CLI.hpp>

#include <algorithm>

namespace unitlib::app {
namespace {

/// Text as the formatter shall print it, letter for letter.
std::string Escaped(const std::string& Text) {
  std::string Result;
  for (const char C : Text) {
    const bool AtStart = Result.empty() || Result.back() == '\n';
    if (AtStart && (C == '.' || C == '\'')) Result += "\\&";
    if (C == '\\')
      Result += "\\e";
    else if (C == '-')
      Result += "\\-";
    else if (C == '\'')
      Result += "\\(aq";
    else
      Result += C;
  }
  return Result;
}

class TPage {
public:
  void Section(const std::string& Title) { FText += ".SH \"" + Escaped(Title) + "\"\n"; }
  void Subsection(const std::string& Title) { FText += ".SS \"" + Escaped(Title) + "\"\n"; }
  void Line(const std::string& Text) { FText += Escaped(Text) + "\n"; }
  void Paragraph(const std::string& Text) {
    StartParagraph();
    Line(Text);
  }
  void Item(const std::string& Head, const std::string& Text) {
    FText += ".TP\n\\fB" + Escaped(Head) + "\\fR\n" + Escaped(Text) + "\n";
  }
  void Verbatim(const std::string& Lines) {
    StartParagraph();
    FText += ".nf\n.RS\n" + Escaped(Lines) + "\n.RE\n.fi\n";
  }
  void Raw(const std::string& Text) { FText += Text; }
  std::string Take() { return std::move(FText); }

private:
  /// A section starts one by itself.
  void StartParagraph() {
    const std::size_t Line = FText.rfind('\n', FText.size() - 2) + 1;
    if (FText.compare(Line, 3, ".SH") != 0) FText += ".PP\n";
  }

  std::string FText;
};

std::vector<const CLI::Option*> Shown(const CLI::App& Command, bool Positional) {
  return Command.get_options([=](const CLI::Option* Option) {
    return !Option->get_group().empty() && Option->get_positional() == Positional;
  });
}

std::string Head(const CLI::Option& Option) {
  if (Option.get_positional()) return Option.get_name(true, false);
  std::string Names = Option.get_name(false, true);
  if (const std::size_t Comma = Names.find(','); Comma != Names.npos) Names.replace(Comma, 1, ", ");
  return Option.get_type_name().empty() || Option.get_items_expected_max() == 0
             ? Names
             : Names + " " + Option.get_type_name();
}

std::string Usage(const CLI::App& Command, const std::string& Name) {
  std::string Result = Name;
  if (!Command.get_subcommands({}).empty()) Result += " " + Say("help.command-place");
  for (const CLI::Option* Option : Shown(Command, true)) {
    const bool Many = Option->get_items_expected_max() > 1;
    const std::string Place = Option->get_name(true, false) + (Many ? "..." : "");
    Result += Option->get_required() ? " " + Place : " [" + Place + "]";
  }
  return Result;
}

void AddOptions(TPage& Page, const CLI::App& Command, bool WithHelp) {
  for (const bool Positional : {true, false})
    for (const CLI::Option* Option : Shown(Command, Positional))
      if (WithHelp || Option != Command.get_help_ptr()) Page.Item(Head(*Option), Option->get_description());
}

void AddCommand(TPage& Page, const CLI::App& Command, const std::string& Name) {
  Page.Subsection(Usage(Command, Name));
  Page.Line(Command.get_description() + ".");
  const TCommandNotes Notes = NotesOf(Command);
  if (!Notes.Notes.empty()) Page.Paragraph(Notes.Notes);
  AddOptions(Page, Command, false);
  if (!Notes.Examples.empty()) Page.Verbatim(Notes.Examples);
  for (const CLI::App* Sub : Command.get_subcommands({}))
    AddCommand(Page, *Sub, Name + " " + Sub->get_name());
}

void AddExitStatus(TPage& Page) {
  std::string_view Command;
  Page.Section(Say("man.exit"));
  for (const TExitRow& Row : ExitRows) {
    if (Row.Command != Command)
      Page.Paragraph(Say("man.exit-of", "unitctl " + std::string(Row.Command)) + ":");
    Command = Row.Command;
    Page.Item(std::to_string(Row.Status), FilledText(Row.Meaning.Row(), nullptr, 0));
  }
}

} // namespace

std::string ManPage() {
  TContext Context;
  const auto Program = MakeProgram(Context);
  const TCommandNotes Notes = NotesOf(*Program);
  TPage Page;
  Page.Raw(".\\\" Made from the definitions of the command line; do not edit.\n");
  Page.Raw(".TH UNITCTL 1 \"\" \"unitlib " UNITLIB_VERSION "\" \"" + Escaped(Say("man.title")) + "\"\n");
  Page.Section(Say("man.name"));
  Page.Raw("unitctl \\- " + Escaped(Say("man.title")) + "\n");
  Page.Section(Say("man.synopsis"));
  Page.Line("unitctl [" + Say("help.options-place") + "] " + Say("help.command-place") + " ...");
  Page.Section(Say("man.description"));
  Page.Line(Program->get_description());
  Page.Paragraph(Notes.Notes);
  Page.Section(Say("man.options"));
  AddOptions(Page, *Program, true);
  Page.Section(Say("man.commands"));
  for (const CLI::App* Command : Program->get_subcommands({}))
    if (!Command->get_group().empty()) AddCommand(Page, *Command, Command->get_name());
  AddExitStatus(Page);
  Page.Section(Say("man.environment"));
  Page.Item("UNITLIB_TEXTS", Say("man.environment.texts"));
  Page.Section(Say("man.files"));
  Page.Item("UnitConfig.xml", Say("man.files.settings"));
  Page.Section(Say("man.examples"));
  Page.Verbatim(Notes.Examples);
  return Page.Take();
}

} // namespace unitlib::app
