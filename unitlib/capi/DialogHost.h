/// What the C interface needs of the dialogs; one source file for builds with them, one for builds without.
#pragma once

#include "unitlib/ui/UnitDialogs.h"

#include <string_view>

namespace unitlib::capi {

bool HasDialogs() noexcept;
/// errors      TFailure UL_ERROR_NOT_AVAILABLE; as ExecuteSystemUnitForm
void RunProjectUnits(TConfigueType ConfigType, std::u16string_view File, const TUnitOKFunc& OnOK,
                     const TLockFileFunc& LockFile);
void EndDialogs() noexcept;

} // namespace unitlib::capi
