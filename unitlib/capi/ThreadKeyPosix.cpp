#include "unitlib/capi/ThreadKey.h"

#include <pthread.h>

namespace unitlib::capi {

TThreadKey::TThreadKey(TCleanup Cleanup) noexcept {
  pthread_key_t Key = 0;
  FValid = pthread_key_create(&Key, Cleanup) == 0;
  FKey = Key;
}

TThreadKey::~TThreadKey() {
  if (FValid) pthread_key_delete(static_cast<pthread_key_t>(FKey)); // from here on no thread calls Cleanup
  FValid = false;
}

void* TThreadKey::Get() const noexcept {
  return FValid ? pthread_getspecific(static_cast<pthread_key_t>(FKey)) : nullptr;
}

bool TThreadKey::Set(void* Pointer) noexcept {
  return FValid && pthread_setspecific(static_cast<pthread_key_t>(FKey), Pointer) == 0;
}

} // namespace unitlib::capi
