/// One pointer per thread, with a clean-up that no unloaded library is called for.
/// Not thread_local: its destructors would keep the library loaded until every thread has ended (Linux), or
/// leave memory behind at each unloading (32-bit Windows, where the compiler emulates it).
#pragma once

namespace unitlib::capi {

/// A slot with one pointer per thread, null at first.
class TThreadKey {
public:
  /// Called with a thread's pointer when the thread ends, as long as the key lives.
  using TCleanup = void (*)(void* Pointer);

  explicit TThreadKey(TCleanup Cleanup) noexcept;
  TThreadKey(const TThreadKey&) = delete;
  TThreadKey& operator=(const TThreadKey&) = delete;
  /// Pointers still set are not cleaned up (Linux) or are (Windows): their owner keeps a list.
  ~TThreadKey();

  void* Get() const noexcept;
  /// False when there is no memory for it, or no key.
  bool Set(void* Pointer) noexcept;

private:
  unsigned long FKey = 0;
  bool FValid = false;
};

} // namespace unitlib::capi
