/// Random choices that are the same with every compiler on every platform.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace checksums {

/// SplitMix64: the distributions of the standard library differ from one implementation to the next.
class TRandom {
public:
  explicit TRandom(uint64_t Seed) : FState(Seed) {}

  uint64_t Next() {
    uint64_t Z = FState += 0x9E3779B97F4A7C15;
    Z = (Z ^ (Z >> 30)) * 0xBF58476D1CE4E5B9;
    Z = (Z ^ (Z >> 27)) * 0x94D049BB133111EB;
    return Z ^ (Z >> 31);
  }
  /// 0 .. Count - 1
  int32_t Below(int32_t Count) { return static_cast<int32_t>(Next() % static_cast<uint64_t>(Count)); }
  bool OneIn(int32_t Count) { return Below(Count) == 0; }
  template <class T, size_t N> const T& Pick(const T (&Items)[N]) {
    return Items[static_cast<size_t>(Below(static_cast<int32_t>(N)))];
  }

  /// A stored value: mostly of a size that buildings have, now and then of any.
  double Value();
  /// A text as users type it, or nearly so.
  std::u16string NumberText();
  std::u16string ImperialText();
  std::u16string Arithmetic(int32_t Depth = 2);
  std::u16string Elevation();
  std::u16string Damaged(std::u16string Text);

private:
  std::u16string Digits(int32_t Most);
  std::u16string Fraction();

  uint64_t FState;
};

} // namespace checksums
