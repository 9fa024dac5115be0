/// How help is laid out: description, usage, arguments, options, examples, notes.
#pragma once

#include <CLI/CLI.hpp>

#include <string>

namespace unitlib::app {

/// The examples of a command, one command line a line, and its notes, as AddCommand has put them down.
struct TCommandNotes {
  std::string Examples;
  std::string Notes;
};
TCommandNotes NotesOf(const CLI::App& Command);

class THelpFormatter : public CLI::Formatter {
public:
  THelpFormatter();
  std::string make_help(const CLI::App* Command, std::string Name, CLI::AppFormatMode Mode) const override;

private:
  /// Global: seen from a command, which has its own help.
  std::string OptionGroup(const std::string& Title, const CLI::App& Command, bool Global) const;
};

} // namespace unitlib::app
