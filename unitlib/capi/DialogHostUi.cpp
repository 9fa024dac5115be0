#include "unitlib/capi/DialogHost.h"

namespace unitlib::capi {

bool HasDialogs() noexcept {
  return true;
}

void RunProjectUnits(TConfigueType ConfigType, std::u16string_view File, const TUnitOKFunc& OnOK,
                     const TLockFileFunc& LockFile) {
  ExecuteSystemUnitForm(ConfigType, File, OnOK, LockFile);
}

void EndDialogs() noexcept {
  FreeUnitDialogs();
}

} // namespace unitlib::capi
