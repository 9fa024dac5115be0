/// unitctl names: the names of systems, measures, units ... one a line.
#include "apps/unitctl/Command.h"
#include "apps/unitctl/Json.h"
#include "apps/unitctl/NameLists.h"
#include "apps/unitctl/Names.h"
#include "apps/unitctl/Session.h"
#include "apps/unitctl/Texts.h"
#include "unitlib/rtl/Text.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace unitlib::app {
namespace {

struct TNamesOptions {
  std::string Kind;
  std::optional<std::string> Measure;
  bool Json = false;
};

const TNameList& FindList(const std::string& Kind) {
  std::vector<TKnownName> Known;
  for (const TNameList& List : NameLists())
    Known.push_back({static_cast<int>(Known.size()), FromUtf8(List.Kind)});
  return NameLists()[static_cast<std::size_t>(FindName(Say("kind.list"), Kind, Known))];
}

void Names(TContext& Context, const TNamesOptions& Options) {
  const TNameList& List = FindList(Options.Kind);
  if (List.OfMeasure && !Options.Measure) throw ERefused(Say("names.measure-needed", List.Kind));
  if (!List.OfMeasure && Options.Measure) throw ERefused(Say("names.measure-unneeded", List.Kind));
  const TSession Session(Context);
  const TMeasure* Measure = List.OfMeasure ? &FindMeasure(TSession::System(), *Options.Measure) : nullptr;
  TJson Json;
  Json.Open('[');
  std::string Text;
  for (const std::string& Name : List.Names(Measure)) {
    Json.Text(Name);
    Text += Printable(Name) + "\n";
  }
  Json.Close(']');
  Context.Print(Options.Json ? Json.Take() : Text);
}

} // namespace

void AddNamesCommand(CLI::App& App, TContext& Context) {
  auto Options = std::make_shared<TNamesOptions>();
  CLI::App* Command = AddCommand(App, "names", Say("help.group.other"), Say("help.names"),
                                 "unitctl names systems\nunitctl names units Area", Say("help.names.notes"));
  AddText(*Command, "KIND", Options->Kind, Say("option.names.kind"))->required();
  AddText(*Command, "MEASURE", Options->Measure, Say("option.measure-position"));
  Command->add_flag("--json", Options->Json, Say("option.json"));
  Command->callback([&Context, Options] { Names(Context, *Options); });
}

} // namespace unitlib::app
