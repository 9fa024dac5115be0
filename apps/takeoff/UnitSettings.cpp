#include "apps/takeoff/UnitSettings.h"

#include "apps/takeoff/Errors.h"
#include "unitlib/model/ZELUnitConfigFileGenerator.h"
#include "unitlib/model/ZELUnitMgr.h"
#include "unitlib/ui/ZELUnitFrm.h"

#include <filesystem>
#include <system_error>

namespace unitlib::takeoff {
namespace {

constexpr TConfigueType FirstSystem = CYStandMetric;

void RequireFile(const std::u16string& Path, TUnitSettings::TIfMissing IfMissing) {
  std::error_code Failed;
  if (std::filesystem::exists(std::filesystem::path(Path), Failed)) return;
  if (IfMissing == TUnitSettings::TIfMissing::Refuse)
    throw EFileError(u"There are no unit settings with this name", Path, u"");
  GenerateUnitDefaultConfigFile(Path);
}

} // namespace

TUnitSettings::TUnitSettings(std::u16string Path, TIfMissing IfMissing)
    : FPath(std::move(Path)), FLock(FPath) {
  RequireFile(FPath, IfMissing);
  Load();
  FLock.Take(); // when another program has it, units can be used here, but not changed
}

TUnitSettings::~TUnitSettings() {
  FreeUnitSystem();
}

void TUnitSettings::Load() {
  try {
    InitialUnitSystem(FPath, FirstSystem, true);
  } catch (...) {
    FreeUnitSystem(); // half a file is worse than none
    throw;
  }
}

void TUnitSettings::Edit(const TUnitOKFunc& OnOK) {
  if (!FLock.Take() && std::filesystem::exists(std::filesystem::path(FPath)))
    throw ERefused(u"Another program is using the unit settings \"" + FPath +
                       u"\"; close it there to change units here",
                   FPath);
  try {
    TSystemUnitForm::Execute(FirstSystem, FPath, OnOK, MethodOf<&TUnitSettings::LockFile>(this));
  } catch (...) {
    const auto Failure = std::current_exception();
    try {
      Load(); // what the failed dialog has freed
    } catch (const EUnitError&) {
      // The first error says it all. Without settings every cell says so.
    }
    std::rethrow_exception(Failure);
  }
}

bool TUnitSettings::LockFile(std::u16string_view, bool Lock) {
  if (Lock) return FLock.Take();
  FLock.Release();
  return true;
}

} // namespace unitlib::takeoff
