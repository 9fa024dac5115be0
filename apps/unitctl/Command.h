/// What every command of unitctl shares: streams, global options, exit status, refusals.
#pragma once

#include "apps/common/Utf8.h"
#include "apps/unitctl/ExitStatus.h"

#include <cstdint>
#include <cstdio>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace CLI {
class App;
class Option;
} // namespace CLI

namespace unitlib::app {

struct TStreams {
  std::FILE* In = nullptr;
  std::FILE* Out = nullptr;
  std::FILE* Err = nullptr;
};

/// One run of the program.
struct TContext {
  TStreams Streams;
  std::optional<std::string> SettingsFile; // --settings
  std::optional<std::string> System;       // --system
  std::optional<std::string> TextsFile;    // --texts; loaded before anything else
  std::string TextsPath;                   // the same or the environment's; empty: English
  std::string Command;                     // name of the command, once it is known
  int ExitCode = ExitOk;

  /// Writes to standard output. errors      EFileError
  void Print(std::string_view Text) const;
  /// Writes a word and what belongs to it as a line of two columns.
  void PrintRow(std::string_view Word, std::string_view Text) const;
  /// Writes "unitctl: Message" to standard error, with the offending text and a caret where a place is known.
  void Complain(std::string_view Message) const;
  void Complain(std::string_view Message, std::string_view Text, std::size_t Place) const;
  /// The same for one bad value or text of several; the exit status becomes ExitBad.
  void ComplainBad(std::string_view Message, std::string_view Text, std::size_t Place);
};

/// Something that cannot be done: what and, where it helps, the offending text and the place in it.
class ERefused : public std::runtime_error {
public:
  explicit ERefused(const std::string& Message) : std::runtime_error(Message) {}
  ERefused(const std::string& Message, std::string Text, std::size_t Place)
      : std::runtime_error(Message), FText(std::move(Text)), FPlace(Place) {}
  /// Empty: the message says it all.
  const std::string& Text() const noexcept { return FText; }
  std::size_t Place() const noexcept { return FPlace; }

private:
  std::string FText;
  std::size_t FPlace = NoPlace;
};

/// A text in quotes, safe for the terminal.
std::string Quoted(std::string_view Text);
std::string Quoted(std::u16string_view Text);

/// Adds a command to a group of the overview, with a one-line description; its help shows the examples, one
/// command line a line, and the notes behind them.
CLI::App* AddCommand(CLI::App& Parent, const std::string& Name, const std::string& Group,
                     const std::string& Description, const std::string& Examples,
                     const std::string& Notes = {});
/// Adds an argument that is taken exactly as typed, whatever it begins with (see Arguments.h).
CLI::Option* AddText(CLI::App& Command, const std::string& Name, std::string& Value,
                     const std::string& Description);
CLI::Option* AddText(CLI::App& Command, const std::string& Name, std::optional<std::string>& Value,
                     const std::string& Description);
CLI::Option* AddTexts(CLI::App& Command, const std::string& Name, std::vector<std::string>& Values,
                      const std::string& Description);

// One function per group of commands, each in the file of that name.
void AddInitCommand(CLI::App& App, TContext& Context);
void AddShowCommand(CLI::App& App, TContext& Context);
void AddUseCommand(CLI::App& App, TContext& Context);
void AddSetCommands(CLI::App& App, TContext& Context);        // set, group, reset
void AddConvertCommands(CLI::App& App, TContext& Context);    // format, parse, check
void AddExpressionCommands(CLI::App& App, TContext& Context); // eval, elev, expr
void AddExplainCommand(CLI::App& App, TContext& Context);
void AddScheduleCommand(CLI::App& App, TContext& Context);
void AddCompareCommand(CLI::App& App, TContext& Context);
void AddDoctorCommand(CLI::App& App, TContext& Context);
void AddDiffCommand(CLI::App& App, TContext& Context);
void AddDialogCommand(CLI::App& App, TContext& Context);
void AddNamesCommand(CLI::App& App, TContext& Context);
void AddTextsCommand(CLI::App& App, TContext& Context);
void AddCompleteCommand(CLI::App& App, TContext& Context);

} // namespace unitlib::app
