/// unitctl init: writes the factory settings.
#include "apps/unitctl/Command.h"
#include "apps/unitctl/Names.h"
#include "apps/unitctl/Session.h"
#include "unitlib/model/ZELUnitConfigFileGenerator.h"
#include "unitlib/rtl/Text.h"

#include <CLI/CLI.hpp>

#include <filesystem>
#include <memory>

namespace unitlib::app {
namespace {

struct TInitOptions {
  std::string File;
  bool Force = false;
};

void RequireAbsent(const std::string& Path) {
  std::error_code Error;
  if (std::filesystem::symlink_status(std::filesystem::path(std::u8string(Path.begin(), Path.end())), Error)
          .type() != std::filesystem::file_type::not_found)
    throw ERefused(Printable(Path) + ": is there already; --force replaces it by the factory settings");
}

/// Writes the chosen system into the new file.
void ChooseSystem(TContext& Context) {
  TSession Session(Context);
  Session.Choose(TSystemUnitDataManager::GetCurConfigIndex());
  Session.Save();
}

void Init(TContext& Context, const TInitOptions& Options) {
  if (!Options.File.empty()) {
    if (Context.SettingsFile && *Context.SettingsFile != Options.File)
      throw ERefused("give the file once: " + Quoted(Options.File) + " or --settings " +
                     Quoted(*Context.SettingsFile));
    Context.SettingsFile = Options.File;
  }
  const std::string Path = SettingsPath(Context);
  if (!Options.Force) RequireAbsent(Path);
  GenerateUnitDefaultConfigFile(FromTerminal(Path));
  if (Context.System) ChooseSystem(Context);
  std::string Text = "wrote " + Printable(Path) + "\n";
  if (!Context.System)
    Text += "next: choose a unit system, for example  unitctl use \"US Imperial System\"\n";
  Context.Print(Text);
}

} // namespace

void AddInitCommand(CLI::App& App, TContext& Context) {
  auto Options = std::make_shared<TInitOptions>();
  CLI::App* Command = AddCommand(App, "init", "Write the factory settings",
                                 "  unitctl init project.xml --system \"Standard Metric System\"\n"
                                 "Without --system the new file has no choice yet; unitctl use makes it.");
  AddText(*Command, "FILE", Options->File, "File to write (default: the settings file)");
  Command->add_flag("--force", Options->Force, "Replace a file that is there already");
  Command->callback([&Context, Options] { Init(Context, *Options); });
}

} // namespace unitlib::app
