/// A sorted table from class names to factories, looked up without letter case and without allocation.
#pragma once

#include "unitlib/rtl/Text.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace unitlib {

/// TFactory is a pointer to the function that makes an object of the class. Filled at start-up, only read
/// afterwards.
template <class TFactory> class TClassRegistry {
public:
  /// Adds a pair; a name that is there already, in any letter case, keeps its first factory.
  void Register(std::u16string_view Name, TFactory Factory) {
    const auto Place = LowerBound(Name);
    if (Place == FEntries.end() || !SameText(Place->Name, Name))
      FEntries.insert(Place, {std::u16string(Name), Factory});
  }

  /// The factory registered under Name, null when there is none.
  TFactory Find(std::u16string_view Name) const noexcept {
    const auto Place = const_cast<TClassRegistry*>(this)->LowerBound(Name);
    return Place != FEntries.end() && SameText(Place->Name, Name) ? Place->Factory : nullptr;
  }

  int Count() const noexcept { return static_cast<int>(FEntries.size()); }

private:
  struct TEntry {
    std::u16string Name;
    TFactory Factory;
  };
  typename std::vector<TEntry>::iterator LowerBound(std::u16string_view Name) noexcept {
    return std::lower_bound(
        FEntries.begin(), FEntries.end(), Name,
        [](const TEntry& Entry, std::u16string_view Key) { return CompareText(Entry.Name, Key) < 0; });
  }

  std::vector<TEntry> FEntries;
};

} // namespace unitlib
