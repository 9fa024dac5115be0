#include "apps/unitctl/Session.h"

#include "apps/unitctl/Names.h"
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
  throw ERefused(Printable(Path) + ": no such settings file; write one with  unitctl init" + Argument);
}

} // namespace

std::string SettingsPath(const TContext& Context) {
  if (!Context.SettingsFile) return ToUtf8(GetExePath()) + "UnitConfig.xml";
  if (Context.SettingsFile->empty()) throw ERefused("--settings needs the name of a file");
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
  const std::string Cause = Index == -1 ? "no unit system is chosen in this settings file"
                                        : "the settings file chooses unit system " + std::to_string(Index) +
                                              ", which it does not hold";
  const std::string Example = Systems.Count() > 0 ? Quoted(Systems[0].Description) : "SYSTEM";
  throw ERefused(Cause + ": choose one with  unitctl use " + Example + "  or add  --system " + Example +
                 "  (unitctl show lists them)");
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
