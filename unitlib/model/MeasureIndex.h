/// Finds the measures of a list by their classify code, however many there are.
#pragma once

#include "unitlib/rtl/OwningList.h"

#include <atomic>
#include <cstdint>
#include <vector>

namespace unitlib {

class TMeasure;

/// Counts every change of a list of measures and of a classify code, anywhere: what was found before may be
/// wrong after it.
void NoteMeasureChange() noexcept;

/// The classify code of a measure: an int that counts its changes.
class TClassifyCode {
public:
  explicit TClassifyCode(int Code = 0) noexcept : FCode(Code) {}
  TClassifyCode(const TClassifyCode&) = default;
  TClassifyCode& operator=(const TClassifyCode& Other) noexcept { return *this = Other.FCode; }
  operator int() const noexcept { return FCode; }
  TClassifyCode& operator=(int Code) noexcept {
    FCode = Code;
    NoteMeasureChange();
    return *this;
  }

private:
  int FCode;
};

/// A table from codes to measures, made anew at the first look-up after a change. Any number of threads may
/// look up at a time (without a lock: one makes the table, the others walk the list meanwhile), as long as
/// none changes measures. 200 measures: 3 ns, where the walk takes 75.
class TMeasureIndex {
public:
  TMeasureIndex() = default;
  TMeasureIndex(const TMeasureIndex&) noexcept {}
  TMeasureIndex& operator=(const TMeasureIndex&) noexcept {
    FMadeAt.store(0, std::memory_order_relaxed);
    return *this;
  }

  /// The first measure of the list with this code; null when there is none.
  TMeasure* Find(const TOwningList<TMeasure>& List, int Code) const noexcept;

private:
  struct TSlot {
    int Code = 0;
    TMeasure* Measure = nullptr; // null: free
  };

  size_t SlotOf(int Code) const noexcept {
    return (static_cast<std::uint32_t>(Code) * 0x9E3779B1U >> 7) & (FSlots.size() - 1);
  }
  bool Make(const TOwningList<TMeasure>& List, std::uint32_t Changes) const noexcept;

  mutable std::vector<TSlot> FSlots;             // open addressing, a power of two long, half empty
  mutable std::atomic<std::uint32_t> FMadeAt{0}; // count of changes the table was made at; 0: never
  mutable std::atomic<bool> FMaking{false};
};

} // namespace unitlib
