#include "apps/unitctl/Session.h"

#include "apps/unitctl/Names.h"
#include "apps/unitctl/Texts.h"
#include "unitlib/rtl/Errors.h"
#include "unitlib/rtl/FileFolders.h"
#include "unitlib/rtl/Text.h"

#include <filesystem>

namespace unitlib::app {
namespace {

using TManager = TSystemUnitDataManager;

std::filesystem::path NativePath(const std::string& Path) {
  return std::filesystem::path(std::u8string(Path.begin(), Path.end()));
}

void RequireFile(const TContext& Context, const std::string& Path) {
  std::error_code Error;
  if (std::filesystem::exists(NativePath(Path), Error) || Error) return;
  const std::string Argument = Context.SettingsFile ? " " + Printable(Path) : "";
  throw ERefused(Say("session.missing", Printable(Path), Argument));
}

} // namespace

void UseFileArgument(TContext& Context, const std::optional<std::string>& File) {
  if (!File) return;
  if (Context.SettingsFile && *Context.SettingsFile != *File)
    throw ERefused(Say("session.twice", Quoted(*File), Quoted(*Context.SettingsFile)));
  Context.SettingsFile = File;
}

std::string SettingsPath(const TContext& Context) {
  if (!Context.SettingsFile) return ToUtf8(GetExePath()) + "UnitConfig.xml";
  if (Context.SettingsFile->empty()) throw ERefused(Say("session.no-name"));
  return *Context.SettingsFile;
}

TSession::TSession(const TContext& Context) {
  const std::string Path = SettingsPath(Context);
  RequireFile(Context, Path);
  TManager::InitUnitSystemSetting(FromTerminal(Path));
  FChosen = TManager::GetCurConfigIndex();
  if (Context.System) TManager::SetCurConfig(FindSystem(*Context.System));
}

bool TSession::HasSystem() const noexcept {
  return TManager::FCurUseUnitConfigContainer &&
         TManager::FCurUseUnitConfigContainer->Find(TManager::GetCurConfigIndex()) != nullptr;
}

TConfig& TSession::System() {
  const int Index = TManager::GetCurConfigIndex();
  const auto& Systems = TManager::CurUseUnitConfigContainer();
  if (TConfig* Found = Systems.Find(Index)) return *Found;
  const std::string Cause =
      Index == -1 ? Say("session.no-choice") : Say("session.bad-choice", std::to_string(Index));
  const std::string Example = Systems.Count() > 0 ? Quoted(Systems[0].Description) : "SYSTEM";
  throw ERefused(Say("session.choose", Cause, Example));
}

void TSession::Choose(int System) noexcept {
  FChosen = System;
  TManager::SetCurConfig(System);
}

void TSession::Save() const {
  const int Current = TManager::GetCurConfigIndex();
  TManager::SetCurConfig(FChosen);
  try {
    TManager::SaveConfigFile({});
  } catch (...) {
    TManager::SetCurConfig(Current);
    throw;
  }
  TManager::SetCurConfig(Current);
}

} // namespace unitlib::app
