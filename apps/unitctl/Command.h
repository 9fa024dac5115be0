/// What every command of unitctl shares: streams, global options, exit status, refusals.
#pragma once

#include "apps/common/Utf8.h"

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

// Exit status. Scripts rely on these numbers.
inline constexpr int ExitOk = 0;
inline constexpr int ExitError = 1; // wrong usage, or nothing could be done
inline constexpr int ExitBad = 2;   // done, but some rows, values or texts were bad

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
  int ExitCode = ExitOk;

  /// Writes to standard output. errors      EFileError
  void Print(std::string_view Text) const;
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

/// "1 text", "2 texts".
std::string Counted(std::uint64_t Count, std::string_view Noun);

/// Adds a command with a one-line description and an example for its help.
CLI::App* AddCommand(CLI::App& Parent, const std::string& Name, const std::string& Description,
                     const std::string& Example);
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
void AddSetCommands(CLI::App& App, TContext& Context);        // use, set, group, reset
void AddConvertCommands(CLI::App& App, TContext& Context);    // format, parse, check
void AddExpressionCommands(CLI::App& App, TContext& Context); // eval, elev, expr
void AddExplainCommand(CLI::App& App, TContext& Context);
void AddScheduleCommand(CLI::App& App, TContext& Context);
void AddCompareCommand(CLI::App& App, TContext& Context);

} // namespace unitlib::app
