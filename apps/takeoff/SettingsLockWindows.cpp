#include "apps/takeoff/SettingsLock.h"

#define NOMINMAX
#include <windows.h>

namespace unitlib::takeoff {

bool TSettingsLock::Take() {
  if (Held()) return true;
  // Others may read. Nobody may write, replace or delete the file while this handle is open.
  const HANDLE Handle = CreateFileW(reinterpret_cast<const wchar_t*>(FPath.c_str()), GENERIC_READ,
                                    FILE_SHARE_READ, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (Handle == INVALID_HANDLE_VALUE) return false;
  OVERLAPPED FarBehindTheEnd{};
  FarBehindTheEnd.OffsetHigh = 1;
  if (!LockFileEx(Handle, LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &FarBehindTheEnd)) {
    CloseHandle(Handle);
    return false;
  }
  FHandle = reinterpret_cast<std::intptr_t>(Handle);
  return true;
}

void TSettingsLock::Release() noexcept {
  if (Held()) CloseHandle(reinterpret_cast<HANDLE>(FHandle));
  FHandle = None;
}

} // namespace unitlib::takeoff
