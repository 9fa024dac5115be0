/// Floating-point arithmetic inside the library is that of a fresh program, whatever the host has set.
#pragma once

#include <cfenv>
#include <cstdint>

namespace unitlib::capi {

/// What decides how the processor calculates: precision, rounding, subnormals, and which errors interrupt.
struct TFloatState {
#if defined(__x86_64__) || defined(__SSE2__)
  uint32_t X87[7]; // as FNSTENV writes it
  uint32_t Sse;
#else
  std::fenv_t Environment;
#endif
};

/// The body of an exported function. Hosts come with errors that interrupt (a division by zero then ends the
/// program), with 53 or 24 bits of x87 precision, other rounding, or subnormals cut to zero. While this lives
/// none of that holds; afterwards the host has its state back, flags included. Where the host's state is the
/// usual one, nothing is touched.
class TFloatScope {
public:
  TFloatScope() noexcept;
  ~TFloatScope();
  TFloatScope(const TFloatScope&) = delete;
  TFloatScope& operator=(const TFloatScope&) = delete;

private:
  friend class THostFloatScope;
  TFloatState FHost;
  TFloatScope* FOuter = nullptr;
  bool FChanged;
};

/// A callback of the host, which gets the state it had when it called the library.
class THostFloatScope {
public:
  THostFloatScope() noexcept;
  ~THostFloatScope();
  THostFloatScope(const THostFloatScope&) = delete;
  THostFloatScope& operator=(const THostFloatScope&) = delete;

private:
  TFloatScope* FScope; // null: the host's state is the usual one
  TFloatState FOurs;
};

} // namespace unitlib::capi
