/// unitctl diff: what differs between two settings files.
#include "apps/unitctl/Command.h"
#include "apps/unitctl/Json.h"
#include "apps/unitctl/SettingsDiff.h"
#include "apps/unitctl/Texts.h"
#include "unitlib/model/ZELUnitMgr.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace unitlib::app {
namespace {

using TManager = TSystemUnitDataManager;

struct TDiffOptions {
  std::string First;
  std::string Second;
  bool Json = false;
};

/// The settings loaded last; the library holds two sets, so the first file stays loaded beside the second.
TLoadedSettings Loaded() {
  return {TManager::FCurUseUnitConfigContainer, TManager::FCurUseDigitGroupContainer,
          TManager::GetCurConfigIndex(), TManager::GetCurDigitGroupIndex()};
}

std::string AsText(const std::vector<TDifference>& Differences) {
  std::string Text;
  for (const TDifference& Difference : Differences)
    Text += (Difference.Place.empty() ? "" : Difference.Place + ": ") + Difference.Text + "\n";
  return Text;
}

std::string AsJson(const TDiffOptions& Options, const std::vector<TDifference>& Differences) {
  TJson Json;
  Json.Open('{');
  Json.Key("first");
  Json.Text(Options.First);
  Json.Key("second");
  Json.Text(Options.Second);
  Json.Key("same");
  Json.Boolean(Differences.empty());
  Json.Key("differences");
  Json.Open('[');
  for (const TDifference& Difference : Differences) {
    Json.Open('{');
    Json.Key("place");
    Json.Text(Difference.Place);
    Json.Key("text");
    Json.Text(Difference.Text);
    Json.Close('}');
  }
  Json.Close(']');
  Json.Close('}');
  return Json.Take();
}

void Diff(TContext& Context, const TDiffOptions& Options) {
  TManager::InitUnitSystemSetting(FromTerminal(Options.First));
  const TLoadedSettings First = Loaded();
  TManager::InitSystemUnit(FromTerminal(Options.Second));
  const std::vector<TDifference> Differences = CompareSettings(First, Loaded());
  Context.ExitCode = Differences.empty() ? DiffSame : DiffDiffers;
  Context.Print(Options.Json ? AsJson(Options, Differences) : AsText(Differences));
}

} // namespace

void AddDiffCommand(CLI::App& App, TContext& Context) {
  auto Options = std::make_shared<TDiffOptions>();
  CLI::App* Command = AddCommand(App, "diff", Say("help.group.files"), Say("help.diff"),
                                 "unitctl diff office.xml project.xml", Say("help.diff.notes"));
  AddText(*Command, "A", Options->First, Say("option.diff.first"))->required();
  AddText(*Command, "B", Options->Second, Say("option.diff.second"))->required();
  Command->add_flag("--json", Options->Json, Say("option.json"));
  Command->callback([&Context, Options] { Diff(Context, *Options); });
}

} // namespace unitlib::app
