/// Base of objects that may be held through counted references.
#pragma once

namespace unitlib {

/// Starts with a count of 0. An object lives in one of two ways, never in both: its creator frees it and
/// nobody counts (the library's own lists do so), or every holder calls AddRef and Release and the last
/// Release frees it. Not guarded against threads: used from the host's user-interface thread.
class TQuillRefCntIntfObject {
public:
  TQuillRefCntIntfObject() = default;
  TQuillRefCntIntfObject(const TQuillRefCntIntfObject&) = delete;
  TQuillRefCntIntfObject& operator=(const TQuillRefCntIntfObject&) = delete;
  virtual ~TQuillRefCntIntfObject() = default;

  int RefCount() const noexcept { return FRefCount; }
  int AddRef() noexcept { return ++FRefCount; }
  /// One holder less; the last one frees the object (which must then stand alone on the heap).
  int Release() noexcept {
    const int Left = --FRefCount;
    if (Left == 0) delete this;
    return Left;
  }

private:
  int FRefCount = 0;
};

} // namespace unitlib
