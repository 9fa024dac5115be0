/// The one rule by which an item of the model becomes current: the first with exactly the given description.
#pragma once

#include "unitlib/rtl/OwningList.h"

#include <string_view>

namespace unitlib {

/// Index becomes the position of the first item with this description; an unknown description leaves it as it
/// is.
template <class T>
void SelectByDescription(const TOwningList<T>& List, std::u16string_view Description, int& Index) {
  int Position = 0;
  for (const auto& Item : List) {
    if (Item->Description == Description) {
      Index = Position;
      return;
    }
    ++Position;
  }
}

} // namespace unitlib
