#include "apps/unitctl/Command.h"

#include "apps/common/Files.h"
#include "apps/common/TextWidth.h"
#include "apps/unitctl/Arguments.h"
#include "apps/unitctl/Texts.h"
#include "unitlib/rtl/Text.h"

#include <CLI/CLI.hpp>

namespace unitlib::app {

void TContext::Print(std::string_view Text) const {
  TStreamOutput(Streams.Out, Say("stream.out")).Write(Text);
}

void TContext::PrintRow(std::string_view Word, std::string_view Text) const {
  constexpr std::size_t Width = 9;
  const std::size_t Used = DisplayWidth(Word);
  std::string Line(Word);
  Line.append(Used < Width ? Width - Used : 1, ' ').append(Text).append("\n");
  Print(Line);
}

void TContext::Complain(std::string_view Message) const {
  Complain(Message, {}, NoPlace);
}

void TContext::Complain(std::string_view Message, std::string_view Text, std::size_t Place) const {
  std::string Lines = "unitctl: " + std::string(Message) + "\n";
  if (Place != NoPlace && !Text.empty()) Lines += MarkedText(Text, Place);
  // Nowhere is left to tell that standard error cannot be written.
  std::fwrite(Lines.data(), 1, Lines.size(), Streams.Err);
}

void TContext::ComplainBad(std::string_view Message, std::string_view Text, std::size_t Place) {
  Complain(Message, Text, Place);
  ExitCode = ExitBad;
}

std::string Quoted(std::string_view Text) {
  constexpr std::size_t Longest = 200;
  if (Text.size() > Longest) return "\"" + Printable(Text.substr(0, Longest)) + "...\"";
  return "\"" + Printable(Text) + "\"";
}

std::string Quoted(std::u16string_view Text) {
  return Quoted(ToUtf8(Text));
}

CLI::App* AddCommand(CLI::App& Parent, const std::string& Name, const std::string& Group,
                     const std::string& Description, const std::string& Examples, const std::string& Notes) {
  CLI::App* Command = Parent.add_subcommand(Name, Description);
  Command->group(Group);
  Command->fallthrough();
  Command->footer(Notes.empty() ? Examples : Examples + "\n\n" + Notes); // see HelpFormatter.cpp
  return Command;
}

CLI::Option* AddText(CLI::App& Command, const std::string& Name, std::string& Value,
                     const std::string& Description) {
  return Command.add_option(Name, Value, Description)->type_name("")->transform(UnguardText);
}

CLI::Option* AddText(CLI::App& Command, const std::string& Name, std::optional<std::string>& Value,
                     const std::string& Description) {
  return Command.add_option(Name, Value, Description)->type_name("")->transform(UnguardText);
}

CLI::Option* AddTexts(CLI::App& Command, const std::string& Name, std::vector<std::string>& Values,
                      const std::string& Description) {
  return Command.add_option(Name, Values, Description)->type_name("")->transform(UnguardText);
}

} // namespace unitlib::app
