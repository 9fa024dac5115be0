/// A stack whose first elements need no memory from the heap.
#pragma once

#include <cstddef>
#include <type_traits>
#include <vector>

namespace unitlib {

/// The first Near elements lie in the object itself, deeper ones in a vector: what usually stays small costs no
/// allocation, and what grows has no limit. References to elements last until the next Push or Pop. Elements are
/// plain data, so an empty stack costs next to nothing to make and to drop.
template <class T, std::size_t Near> class TSmallStack {
  static_assert(std::is_trivial_v<T>);

public:
  bool Empty() const noexcept { return FCount == 0; }
  std::size_t Count() const noexcept { return FCount; }
  T& Top() noexcept { return FCount <= Near ? FNear[FCount - 1] : FFar.back(); }
  const T& Top() const noexcept { return FCount <= Near ? FNear[FCount - 1] : FFar.back(); }

  void Push(const T& Element) { Grow() = Element; }
  /// Makes a new top; what is in it is not specified.
  T& Grow() {
    if (FCount >= Near) FFar.emplace_back();
    ++FCount;
    return Top();
  }
  /// Takes the top away.
  void Pop() noexcept {
    if (FCount > Near) FFar.pop_back();
    --FCount;
  }

private:
  T FNear[Near];
  std::vector<T> FFar;
  std::size_t FCount = 0;
};

} // namespace unitlib
