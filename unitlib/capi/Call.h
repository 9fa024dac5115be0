/// The border between C and C++: every exported function runs its body here, and nothing gets past it.
#pragma once

#include "unitlib/capi/FloatState.h"
#include "unitlib/capi/LastError.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace unitlib::capi {

/// A call that cannot go on; thrown inside the interface, never out of it.
struct TFailure {
  ul_status Status;
  std::u16string Message;
  std::u16string Text = {}; // the offending text
  int32_t Position = -1;
};

[[noreturn]] void FailArgument(std::u16string Message);

/// What is known about the exception being handled.
TErrorRecord DescribeException();
/// Keeps it as the thread's last error, for an item of a column or (-1) the whole call, and gives its status.
ul_status KeepException(int32_t Item = -1) noexcept;
/// Keeps a failure that was no exception and gives its status.
ul_status KeepFailure(TFailure Failure) noexcept;

/// Runs the body of an exported function, which returns a status or nothing (then UL_OK), in the usual
/// floating-point state.
template <class TBody> ul_status Call(TBody Body) noexcept {
  const TFloatScope Scope;
  try {
    if constexpr (std::is_void_v<decltype(Body())>) {
      Body();
      return UL_OK;
    } else {
      return Body();
    }
  } catch (...) {
    return KeepException();
  }
}

/// The place for a result, which must not be null.
template <class T> T& Result(T* Pointer) {
  if (!Pointer) FailArgument(u"A result pointer is null");
  return *Pointer;
}

/// A call with one result: Place receives what Source gives.
template <class T, class TSource> ul_status Answer(T* Place, TSource Source) noexcept {
  return Call([&] {
    T& Receiver = Result(Place); // first, so that a null pointer is what the host is told about
    Receiver = Source();
  });
}

/// A code from 0 to Count - 1.
inline int32_t RequireCode(int32_t Code, int32_t Count, const char16_t* What) {
  if (Code < 0 || Code >= Count) FailArgument(std::u16string(u"Unknown ") + What);
  return Code;
}

} // namespace unitlib::capi
