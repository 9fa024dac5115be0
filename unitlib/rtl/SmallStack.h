/// A stack whose first elements need no memory from the heap.
#pragma once

#include <cstddef>
#include <utility>
#include <vector>

namespace unitlib {

/// The first Near elements lie in the object itself, deeper ones in a vector: what usually stays small costs no
/// allocation, and what grows has no limit. References to elements last until the next Push or Pop.
template <class T, std::size_t Near> class TSmallStack {
public:
  bool Empty() const noexcept { return FCount == 0; }
  std::size_t Count() const noexcept { return FCount; }
  T& Top() noexcept { return FCount <= Near ? FNear[FCount - 1] : FFar.back(); }
  const T& Top() const noexcept { return FCount <= Near ? FNear[FCount - 1] : FFar.back(); }

  void Push(T&& Element) {
    if (FCount < Near)
      FNear[FCount] = std::move(Element);
    else
      FFar.push_back(std::move(Element));
    ++FCount;
  }
  /// The new top: a fresh element, or what Pop left of an earlier one.
  T& Grow() {
    if (FCount >= Near) FFar.emplace_back();
    ++FCount;
    return Top();
  }
  /// Takes the top away. (An element that owns something should be moved out before.)
  void Pop() noexcept {
    if (FCount > Near) FFar.pop_back();
    --FCount;
  }
  /// Takes all away, freeing what they own.
  void Clear() noexcept {
    for (; FCount > 0; Pop()) Top() = T();
  }

private:
  T FNear[Near];
  std::vector<T> FFar;
  std::size_t FCount = 0;
};

} // namespace unitlib
