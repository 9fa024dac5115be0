/// The dialogs as a host without wxWidgets sees them: one call, two callbacks, no toolkit header.
#pragma once

#include "unitlib/model/ZELUnitConst.h"
#include "unitlib/rtl/MethodPtr.h"

#include <string_view>

namespace unitlib {

/// The host's lock on its settings file: called with Lock false right before the library writes or re-reads
/// the file and with Lock true right after, whatever failed in between. The result is not used.
using TLockFileFunc = TMethodPtr<bool(std::u16string_view FileName, bool Lock)>;

/// Called after OK has saved the settings; a host usually calls UnitRefreshManager()->RefreshUnit() in it.
using TUnitOKFunc = TMethodPtr<void()>;

/// Opens the Project Units dialog: the same as TSystemUnitForm::Execute.
void ExecuteSystemUnitForm(TConfigueType ConfigType, std::u16string_view FileName,
                           const TUnitOKFunc& OnOK = {}, const TLockFileFunc& LockFile = {});

/// Ends the toolkit if the library started it; no dialog may be open. Happens by itself when the process
/// ends. A host that unloads the library earlier calls it before; it cannot be used again afterwards on every
/// platform.
void FreeUnitDialogs() noexcept;

} // namespace unitlib
