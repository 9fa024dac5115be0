#include "apps/takeoff/Project.h"

#include "apps/takeoff/Measures.h"
#include "apps/takeoff/ValueField.h"
#include "unitlib/rtl/Text.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <map>

namespace unitlib::takeoff {
namespace {

/// A sum that keeps the digits which a plain one loses with many items of unequal size (Neumaier's
/// compensation).
class TSum {
public:
  void Add(double Value) {
    const double Next = FSum + Value;
    FLost += std::abs(FSum) >= std::abs(Value) ? (FSum - Next) + Value : (Value - Next) + FSum;
    FSum = Next;
    ++FCount;
  }
  double Value() const { return FSum + FLost; }
  std::size_t Count() const { return FCount; }

private:
  double FSum = 0;
  double FLost = 0;
  std::size_t FCount = 0;
};

} // namespace

TTotals TProject::Totals() const {
  std::map<int, TSum> Sums;
  std::size_t Numbers = 0;
  for (const TItem& Item : FItems)
    if (std::isfinite(Item.Value)) Sums[Item.Measure].Add(Item.Value);
  TTotals Totals;
  for (const TMeasureChoice& Measure : UsableMeasures()) {
    const auto Sum = Sums.find(Measure.Code);
    if (Sum == Sums.end()) continue;
    Totals.ByMeasure.push_back({Measure.Code, Sum->second.Value(), Sum->second.Count()});
    Numbers += Sum->second.Count();
  }
  Totals.LeftOut = FItems.size() - Numbers;
  return Totals;
}

void TProject::SetName(std::size_t Row, std::u16string_view Text) {
  TItem& Item = FItems.at(Row);
  const std::u16string Name = Trim(Text);
  FStore.SetName(Item.Id, Name);
  Item.Name = Name;
}

void TProject::SetMeasure(std::size_t Row, std::u16string_view Name) {
  TItem& Item = FItems.at(Row);
  const int Measure = FindMeasure(Name);
  const bool HasValue = std::isfinite(Item.Value) && Item.Value != 0;
  if (HasValue && !SameBaseUnit(Item.Measure, Measure))
    throw ERefused(TValueField(Item.Measure).Display(Item.Value) + u" cannot become a value of \"" +
                       MeasureName(Measure) + u"\"; set the value to 0 first",
                   Name);
  FStore.SetMeasure(Item.Id, Measure);
  Item.Measure = Measure;
}

void TProject::SetValue(std::size_t Row, std::u16string_view Text) {
  TItem& Item = FItems.at(Row);
  const double Value = TValueField(Item.Measure).Read(Text);
  const std::u16string Typed = Trim(Text);
  const std::u16string TypedIn = CurrentUnitName(Item.Measure);
  FStore.SetValue(Item.Id, Value, Typed, TypedIn);
  Item.Value = Value;
  Item.Typed = Typed;
  Item.TypedIn = TypedIn;
}

void TProject::SetElevation(std::size_t Row, std::u16string_view Text) {
  TItem& Item = FItems.at(Row);
  const std::u16string Elevation = TElevationField::Read(Text);
  FStore.SetElevation(Item.Id, Elevation);
  Item.Elevation = Elevation;
}

bool TProject::Add(std::vector<TItem> Items, const TProgress& Progress) {
  if (!FStore.Add(Items, Progress)) return false;
  FItems.insert(FItems.end(), std::make_move_iterator(Items.begin()), std::make_move_iterator(Items.end()));
  return true;
}

void TProject::Delete(std::vector<std::size_t> Rows) {
  std::sort(Rows.begin(), Rows.end());
  Rows.erase(std::unique(Rows.begin(), Rows.end()), Rows.end());
  std::vector<std::int64_t> Ids;
  Ids.reserve(Rows.size());
  for (const std::size_t Row : Rows) Ids.push_back(FItems.at(Row).Id);
  FStore.Delete(Ids);
  std::size_t Kept = 0;
  auto Next = Rows.begin();
  for (std::size_t Row = 0; Row < FItems.size(); ++Row) {
    if (Next != Rows.end() && *Next == Row) {
      ++Next;
      continue;
    }
    if (Kept != Row) FItems[Kept] = std::move(FItems[Row]);
    ++Kept;
  }
  FItems.resize(Kept);
}

} // namespace unitlib::takeoff
