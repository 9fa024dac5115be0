/// The bracket around every use of the settings file: unlock, work, lock again whatever failed.
#pragma once

#include <exception>

namespace unitlib {

/// Calls DoLock(false), Body(), DoLock(true). DoLock(true) runs even when one of the others raises; the first
/// error is the one that leaves.
template <class TDoLock, class TBody> void RunUnlocked(TDoLock DoLock, TBody Body) {
  std::exception_ptr Failure;
  try {
    DoLock(false);
    Body();
  } catch (...) {
    Failure = std::current_exception();
  }
  try {
    DoLock(true);
  } catch (...) {
    if (!Failure) Failure = std::current_exception();
  }
  if (Failure) std::rethrow_exception(Failure);
}

} // namespace unitlib
