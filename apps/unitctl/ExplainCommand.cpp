/// unitctl explain: how a typed text is read, step by step.
#include "apps/unitctl/Command.h"
#include "apps/unitctl/Json.h"
#include "apps/unitctl/Names.h"
#include "apps/unitctl/Session.h"
#include "apps/unitctl/Texts.h"
#include "apps/unitctl/TypedOptions.h"
#include "unitlib/rtl/Numbers.h"
#include "unitlib/rtl/Text.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace unitlib::app {
namespace {

struct TExplainOptions {
  std::string Measure;
  std::string Text;
  TTypedFlags Flags;
  bool Json = false;
};

void WriteTexts(TJson& Json, const TTypedReading& Reading) {
  Json.Key("steps");
  Json.Open('[');
  for (const TTypedStep& Step : Reading.Steps) {
    Json.Open('{');
    Json.Key("name");
    Json.Text(Step.Name);
    Json.Key("text");
    Json.Text(Step.Text);
    Json.Close('}');
  }
  Json.Close(']');
}

void WriteValue(TJson& Json, const TTypedReading& Reading) {
  Json.Key("rewritten");
  Json.Text(Reading.Rewritten);
  Json.Key("understood");
  Json.Text(Reading.Understood);
  Json.Key("storeValue");
  // As text, so that no reader of JSON rounds it; null for a name with an offset.
  if (Reading.HasValue)
    Json.Text(FloatToStr(Reading.StoreValue));
  else
    Json.Null();
}

void WriteRefusal(TJson& Json, const TTypedReading& Reading) {
  Json.Key("problem");
  Json.Text(TypedProblemName(Reading.Problem));
  Json.Key("reason");
  Json.Text(Reading.Reason);
  Json.Key("offset");
  Json.Number(static_cast<int>(Reading.Offset));
  Json.Key("suggestions");
  Json.Open('[');
  for (const std::u16string& Suggestion : Reading.Suggestions) Json.Text(Suggestion);
  Json.Close(']');
}

std::string AsJson(const std::u16string& Text, const TTypedReading& Reading) {
  TJson Json;
  Json.Open('{');
  Json.Key("typed");
  Json.Text(Text);
  Json.Key("accepted");
  Json.Boolean(Reading.Accepted);
  if (Reading.Accepted) {
    WriteValue(Json, Reading);
    WriteTexts(Json, Reading);
  } else {
    WriteRefusal(Json, Reading);
  }
  Json.Close('}');
  return Json.Take();
}

std::string AsLines(const TTypedReading& Reading) {
  constexpr std::size_t Column = 15;
  std::string Lines;
  for (const TTypedStep& Step : Reading.Steps) {
    std::string Name = ToUtf8(Step.Name);
    Name.resize(std::max(Column, Name.size() + 1), ' ');
    Lines += Name + Printable(ToUtf8(Step.Text)) + "\n";
  }
  return Lines;
}

void Explain(TContext& Context, const TExplainOptions& Options) {
  const TSession Session(Context);
  const TMeasure& Measure = FindConvertible(Options.Measure);
  constexpr int BaseUnits = -1;
  const std::u16string Text = FromTerminal(Options.Text);
  const TTypedReading Reading = ReadTyped(Measure.ClassifyCode, Text, TypedOptions(Options.Flags, BaseUnits));
  if (Options.Json) Context.Print(AsJson(Text, Reading));
  if (!Options.Json && Reading.Accepted) Context.Print(AsLines(Reading));
  if (Reading.Accepted) return;
  if (Options.Json)
    Context.ExitCode = ExitBad;
  else
    ComplainAboutTyped(Context, Options.Text, Reading);
}

} // namespace

void AddExplainCommand(CLI::App& App, TContext& Context) {
  auto Options = std::make_shared<TExplainOptions>();
  CLI::App* Command = AddCommand(App, "explain", Say("help.group.values"), Say("help.explain"),
                                 "unitctl explain 0 \"10'-6 1/2\\\"\"\n"
                                 "unitctl explain 3 --expression \"L1 - (-5' 6 1/2\\\")\" --json",
                                 Say("help.explain.notes"));
  AddText(*Command, "MEASURE", Options->Measure, Say("option.measure"))->required();
  AddText(*Command, "TEXT", Options->Text, Say("option.explain.text"))->required();
  AddTypedOptions(*Command, Options->Flags);
  Command->add_flag("--json", Options->Json, Say("option.json"));
  Command->callback([&Context, Options] { Explain(Context, *Options); });
}

} // namespace unitlib::app
