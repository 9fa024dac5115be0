#include "unitlib/capi/ThreadKey.h"

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

namespace unitlib::capi {
namespace {

// One key per library is all there is, so that its clean-up needs no table. A fiber slot, because a thread
// slot has no clean-up of its own; in a thread without fibers both are the same.
TThreadKey::TCleanup CleanupOfKey = nullptr;

VOID WINAPI CleanUp(PVOID Pointer) {
  if (Pointer && CleanupOfKey) CleanupOfKey(Pointer);
}

} // namespace

TThreadKey::TThreadKey(TCleanup Cleanup) noexcept {
  CleanupOfKey = Cleanup;
  const DWORD Key = FlsAlloc(CleanUp);
  FValid = Key != FLS_OUT_OF_INDEXES;
  FKey = Key;
}

TThreadKey::~TThreadKey() {
  if (FValid)
    FlsFree(static_cast<DWORD>(FKey)); // cleans up for every thread; from here on none calls Cleanup
  FValid = false;
}

void* TThreadKey::Get() const noexcept {
  return FValid ? FlsGetValue(static_cast<DWORD>(FKey)) : nullptr;
}

bool TThreadKey::Set(void* Pointer) noexcept {
  return FValid && FlsSetValue(static_cast<DWORD>(FKey), Pointer);
}

} // namespace unitlib::capi
