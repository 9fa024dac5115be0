/// unitctl dialog: opens the Project Units dialog. It is a program of its own beside this one, so that
/// nothing else waits for a window toolkit to be loaded.
#include "apps/common/Platform.h"
#include "apps/unitctl/Command.h"
#include "apps/unitctl/Names.h"
#include "apps/unitctl/Session.h"
#include "apps/unitctl/Texts.h"
#include "apps/unitctl/dialog/DialogStatus.h"
#include "unitlib/rtl/FileFolders.h"
#include "unitlib/rtl/Text.h"

#include <CLI/CLI.hpp>

#include <filesystem>
#include <memory>

namespace unitlib::app {
namespace {

void RequireProgram(const std::string& Path) {
  std::error_code Error;
  if (!std::filesystem::exists(std::filesystem::path(std::u8string(Path.begin(), Path.end())), Error))
    throw ERefused(Say("dialog-command.missing", Printable(Path)));
}

void Dialog(TContext& Context, const std::optional<std::string>& File) {
  UseFileArgument(Context, File);
  const TSession Session(Context); // a file that cannot be read is told here, not in a window
  const std::string Path = SettingsPath(Context);
  const std::string Program = ToUtf8(GetExePath()) + DialogProgram;
  RequireProgram(Program);
  // Which system to begin with where the file has no choice yet.
  const int System = Context.System ? FindSystem(*Context.System) : 0;
  const int Status = platform::RunProgram(Program, {Path, std::to_string(System), Context.TextsPath});
  if (Status == DialogSaved)
    Context.Print(Say("dialog-command.saved", Printable(Path)) + "\n");
  else if (Status == DialogCancelled)
    Context.Print(Say("dialog-command.cancelled", Printable(Path)) + "\n");
  else if (Status == DialogFailed)
    Context.ExitCode = ExitError; // the dialog has said why
  else
    throw ERefused(Say("dialog-command.failed"));
}

} // namespace

void AddDialogCommand(CLI::App& App, TContext& Context) {
  auto File = std::make_shared<std::optional<std::string>>();
  CLI::App* Command = AddCommand(App, "dialog", Say("help.group.settings"), Say("help.dialog"),
                                 "unitctl dialog project.xml", Say("help.dialog.notes"));
  AddText(*Command, "FILE", *File, Say("option.file"));
  Command->callback([&Context, File] { Dialog(Context, *File); });
}

} // namespace unitlib::app
