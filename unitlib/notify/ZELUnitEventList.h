/// An ordered list of listeners (method pointers), each with a description.
#pragma once

#include "unitlib/rtl/MethodPtr.h"
#include "unitlib/rtl/RefCntObject.h"

#include <string>
#include <string_view>
#include <vector>

namespace unitlib {

/// Listeners in order of attachment. The list owns its entries, not the listeners' objects. Duplicates are
/// allowed: a listener attached twice is kept, and called, twice.
class TUnitEventList : public TQuillRefCntIntfObject {
public:
  /// Lowest position whose entry is AEvent, or -1.
  int IndexOf(const TMethod& AEvent) const noexcept;
  /// True when code and object are both equal.
  static bool SameEvent(const TMethod& A, const TMethod& B) noexcept;
  int GetCount() const noexcept;
  /// The entry at AIndex.
  /// errors      EListError AIndex is outside 0 .. GetCount() - 1
  TMethod GetMethodByIndex(int AIndex) const;
  std::u16string GetDescriptions(int AIndex) const;

  void Attach(const TMethod& AEvent, std::u16string_view ADescription);
  void Detach(const TMethod& AEvent);
  /// Appends the pair, whether or not the listener is there already.
  void DoAttach(const TMethod& AEvent, std::u16string_view ADescription);
  /// Removes the first entry that is AEvent; an absent listener changes nothing.
  void DoDetach(const TMethod& AEvent);

private:
  size_t Checked(int AIndex) const;

  // Always of the same length; entry i of one belongs to entry i of the other.
  std::vector<TMethod> FEvents;
  std::vector<std::u16string> FDescriptions;
};

} // namespace unitlib
