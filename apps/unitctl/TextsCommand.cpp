/// unitctl texts: the table of all texts, as a file for another language starts.
#include "apps/unitctl/Command.h"
#include "apps/unitctl/Json.h"
#include "apps/unitctl/Texts.h"
#include "unitlib/rtl/Text.h"
#include "unitlib/rtl/UserTexts.h"
#include "unitlib/ui/UiTexts.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace unitlib::app {
namespace {

/// Calls Use(Key, Text) for each text of the dialogs and of unitctl.
template <class TUse> void ForEachText(TUse Use) {
  for (const TUiTextRow& Row : UiTexts)
    if (!Row.Key.empty()) Use(std::u16string(Row.Key), std::u16string(Row.English));
  for (const TTextRow& Row : TextRows) Use(FromUtf8(Row.Key), FromUtf8(Row.English));
}

void WriteTexts(const TContext& Context, bool AsJson) {
  TJson Json;
  Json.Open('{');
  std::string Text;
  ForEachText([&](const std::u16string& Key, const std::u16string& English) {
    const std::u16string Shown = UserText(Key, English);
    Json.Key(ToUtf8(Key));
    Json.Text(Shown);
    Text += ToUtf8(Key) + " = " + ToUtf8(EscapedText(Shown)) + "\n";
  });
  Json.Close('}');
  Context.Print(AsJson ? Json.Take() : Text);
}

} // namespace

void AddTextsCommand(CLI::App& App, TContext& Context) {
  auto Json = std::make_shared<bool>(false);
  CLI::App* Command = AddCommand(App, "texts", Say("help.group.other"), Say("help.texts"),
                                 "unitctl texts > own.txt", Say("help.texts.notes"));
  Command->add_flag("--json", *Json, Say("option.json"));
  Command->callback([&Context, Json] { WriteTexts(Context, *Json); });
}

} // namespace unitlib::app
