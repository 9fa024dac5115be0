/// An open take-off: the items of a project file and the edits of its cells. Items are read once and then
/// kept in step with the file: memory changes only after the file has.
#pragma once

#include "apps/takeoff/ProjectStore.h"

#include <string>
#include <string_view>
#include <vector>

namespace unitlib::takeoff {

/// Sum of the items of one measure.
struct TTotal {
  int Measure = 0;
  double Sum = 0;
  std::size_t Count = 0;
};

struct TTotals {
  std::vector<TTotal> ByMeasure; // in the order in which the unit settings list the measures
  std::size_t LeftOut = 0;       // items without a number or of a measure that the settings do not know
};

class TProject {
public:
  /// errors      EProjectError, see TProjectStore
  explicit TProject(const std::u16string& Path) : FStore(Path), FItems(FStore.Load()) {}

  const std::u16string& Path() const noexcept { return FStore.Path(); }
  bool ReadOnly() const noexcept { return FStore.ReadOnly(); }
  std::size_t Count() const noexcept { return FItems.size(); }
  const TItem& Item(std::size_t Row) const { return FItems.at(Row); }
  TTotals Totals() const;

  // Edits. Each is one transaction.
  // errors      ERefused the text is not accepted; EProjectError the file cannot be written. Nothing has
  // changed then.

  void SetName(std::size_t Row, std::u16string_view Text);
  /// A measure by its name. A value keeps its meaning: another base unit is refused unless the value is 0.
  void SetMeasure(std::size_t Row, std::u16string_view Name);
  void SetValue(std::size_t Row, std::u16string_view Text);
  void SetElevation(std::size_t Row, std::u16string_view Text);
  /// Appends items; false when Progress has stopped it.
  bool Add(std::vector<TItem> Items, const TProgress& Progress = {});
  /// Rows in any order.
  void Delete(std::vector<std::size_t> Rows);

private:
  TProjectStore FStore;
  std::vector<TItem> FItems;
};

} // namespace unitlib::takeoff
