#include "apps/takeoff/SettingsLock.h"

#include "unitlib/rtl/Text.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace unitlib::takeoff {

bool TSettingsLock::Take() {
  if (Held()) return true;
  const int Handle = open(ToUtf8(FPath).c_str(), O_RDONLY | O_CLOEXEC);
  if (Handle < 0) return false;
  if (flock(Handle, LOCK_EX | LOCK_NB) != 0) {
    close(Handle);
    return false;
  }
  FHandle = Handle;
  return true;
}

void TSettingsLock::Release() noexcept {
  if (Held()) close(FHandle); // which ends the lock
  FHandle = None;
}

} // namespace unitlib::takeoff
