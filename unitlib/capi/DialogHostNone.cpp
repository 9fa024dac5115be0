#include "unitlib/capi/Call.h"
#include "unitlib/capi/DialogHost.h"

namespace unitlib::capi {

bool HasDialogs() noexcept {
  return false;
}

void RunProjectUnits(TConfigueType, std::u16string_view, const TUnitOKFunc&, const TLockFileFunc&) {
  throw TFailure{UL_ERROR_NOT_AVAILABLE, u"This library is built without the dialogs"};
}

void EndDialogs() noexcept {}

} // namespace unitlib::capi
