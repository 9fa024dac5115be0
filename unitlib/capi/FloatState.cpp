#include "unitlib/capi/FloatState.h"

#include <utility>

namespace unitlib::capi {
namespace {

// The scope whose host state a callback gets. Plain data: the unloading of the library has nothing to undo.
constinit thread_local TFloatScope* Innermost = nullptr;

#if defined(__x86_64__) || defined(__SSE2__)

constexpr uint16_t UsualX87 = 0x037F;    // no interrupts, 64 bits, to nearest
constexpr uint32_t UsualSse = 0x1F80;    // no interrupts, to nearest, subnormals kept
constexpr uint32_t SseControls = 0xFFC0; // all but the flags of what has happened

uint32_t Sse() noexcept {
  uint32_t Value;
  asm volatile("stmxcsr %0" : "=m"(Value) : : "memory");
  return Value;
}

void SetSse(uint32_t Value) noexcept {
  asm volatile("ldmxcsr %0" : : "m"(Value) : "memory");
}

bool IsUsual() noexcept {
  uint16_t X87;
  asm volatile("fnstcw %0" : "=m"(X87) : : "memory");
  return X87 == UsualX87 && (Sse() & SseControls) == UsualSse;
}

void Save(TFloatState& State) noexcept {
  asm volatile("fnstenv %0" : "=m"(State.X87) : : "memory");
  State.Sse = Sse();
}

/// Also clears the flags of the x87 unit: one that is set would interrupt as soon as the host's own state
/// lets it.
void SetUsual() noexcept {
  asm volatile("fninit" : : : "memory");
  SetSse(UsualSse);
}

void Restore(const TFloatState& State) noexcept {
  SetSse(State.Sse);
  asm volatile("fldenv %0" : : "m"(State.X87) : "memory");
}

#else

bool IsUsual() noexcept {
  return false; // no portable way to ask
}
void Save(TFloatState& State) noexcept {
  std::fegetenv(&State.Environment);
}
void SetUsual() noexcept {
  std::fesetenv(FE_DFL_ENV);
}
void Restore(const TFloatState& State) noexcept {
  std::fesetenv(&State.Environment);
}

#endif

} // namespace

TFloatScope::TFloatScope() noexcept : FChanged(!IsUsual()) {
  if (!FChanged) return;
  Save(FHost);
  SetUsual();
  FOuter = std::exchange(Innermost, this);
}

TFloatScope::~TFloatScope() {
  if (!FChanged) return;
  Innermost = FOuter;
  Restore(FHost);
}

THostFloatScope::THostFloatScope() noexcept : FScope(Innermost) {
  if (!FScope) return;
  Save(FOurs);
  Restore(FScope->FHost);
}

THostFloatScope::~THostFloatScope() {
  if (!FScope) return;
  Save(FScope->FHost); // what the callback has set is the host's wish
  Restore(FOurs);
}

} // namespace unitlib::capi
