#include "unitlib/model/MeasureIndex.h"

#include "unitlib/model/UnitModel.h"

#include <bit>
#include <new>

namespace unitlib {
namespace {

/// Never 0. Read while others only read; changes happen while nobody converts.
std::atomic<std::uint32_t> Changes{1};

TMeasure* Walk(const TOwningList<TMeasure>& List, int Code) noexcept {
  for (const auto& Measure : List)
    if (Measure->ClassifyCode == Code) return Measure.get();
  return nullptr;
}

} // namespace

void NoteMeasureChange() noexcept {
  if (Changes.fetch_add(1, std::memory_order_relaxed) + 1 == 0) Changes.store(1, std::memory_order_relaxed);
}

TMeasure* TMeasureIndex::Find(const TOwningList<TMeasure>& List, int Code) const noexcept {
  const std::uint32_t Now = Changes.load(std::memory_order_relaxed);
  if (FMadeAt.load(std::memory_order_acquire) != Now && !Make(List, Now)) return Walk(List, Code);
  for (size_t Slot = SlotOf(Code);; Slot = (Slot + 1) & (FSlots.size() - 1)) {
    const TSlot& Found = FSlots[Slot];
    if (!Found.Measure || Found.Code == Code) return Found.Measure;
  }
}

/// False when another thread is making the table, or there is no memory for it.
bool TMeasureIndex::Make(const TOwningList<TMeasure>& List, std::uint32_t Now) const noexcept {
  if (FMaking.exchange(true, std::memory_order_acquire)) return false;
  bool Made = FMadeAt.load(std::memory_order_relaxed) == Now; // by a thread that was faster
  if (!Made) {
    try {
      FSlots.assign(std::bit_ceil(static_cast<size_t>(List.Count()) * 2 + 2), {});
      for (const auto& Measure : List) {
        size_t Slot = SlotOf(Measure->ClassifyCode);
        while (FSlots[Slot].Measure && FSlots[Slot].Code != Measure->ClassifyCode)
          Slot = (Slot + 1) & (FSlots.size() - 1);
        if (!FSlots[Slot].Measure) FSlots[Slot] = {Measure->ClassifyCode, Measure.get()};
      }
      FMadeAt.store(Now, std::memory_order_release);
      Made = true;
    } catch (const std::bad_alloc&) {
    }
  }
  FMaking.store(false, std::memory_order_release);
  return Made;
}

} // namespace unitlib
