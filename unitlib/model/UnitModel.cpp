#include "unitlib/model/UnitModel.h"

#include "unitlib/model/SelectByDescription.h"

namespace unitlib {
namespace {

template <class T> std::vector<std::u16string> Descriptions(const TOwningList<T>& List) {
  std::vector<std::u16string> Result;
  Result.reserve(static_cast<size_t>(List.Count()));
  for (const auto& Item : List) Result.push_back(Item->Description);
  return Result;
}

} // namespace

const std::u16string& TUnit::GetCurUnitSymbolDescription() const noexcept {
  if (const TUnitSymbol* Symbol = GetUnitSymbol(CurUnitSymbolIndex)) return Symbol->Description;
  static const std::u16string Empty;
  return Empty;
}

std::vector<std::u16string> TUnit::GetRoundDescriptionArray() const {
  return Descriptions(RoundContainer);
}
std::vector<std::u16string> TUnit::GetUnitSymbolDescriptionArray() const {
  return Descriptions(UnitSymbolContainer);
}

void TUnit::SetCurRound(std::u16string_view RoundDescription) {
  SelectByDescription(RoundContainer, RoundDescription, CurRoundIndex);
}

void TUnit::SetCurUnitSymbol(std::u16string_view SymbolDescription) {
  SelectByDescription(UnitSymbolContainer, SymbolDescription, CurUnitSymbolIndex);
}

void TUnit::RestoreDefault() noexcept {
  for (TCheckBoxSetting* Setting : {&UseProjectSetting, &SuppressTrail0, &Suppress0Feet, &ShowPlusForPosValue,
                                    &UseDigitGroup, &SuppressSpace}) {
    Setting->Enable = Setting->DefEnable;
    Setting->Checked = Setting->DefChecked;
  }
  CurRoundIndex = DefRoundIndex;
  CurUnitSymbolIndex = DefUnitSymbolIndex;
}

std::vector<std::u16string> TMeasure::GetUnitDescriptionArray() const {
  return Descriptions(UnitContainer);
}

void TMeasure::SetCurUnit(std::u16string_view UnitDescription) {
  SelectByDescription(UnitContainer, UnitDescription, CurUnitIndex);
}

void TMeasure::RestoreDefault() noexcept {
  auto Restore = [this](int Index) {
    if (TUnit* Unit = UnitContainer.Find(Index)) Unit->RestoreDefault();
  };
  Restore(CurUnitIndex);
  if (DefUnitIndex == CurUnitIndex) return;
  CurUnitIndex = DefUnitIndex;
  Restore(CurUnitIndex);
}

TMeasure* TConfig::Measure(int Index, bool ByOrderIndex) const {
  if (!ByOrderIndex) return &MeasureContainer.Item(Index);
  for (const auto& Item : MeasureContainer)
    if (Item->OrderIndex == Index) return Item.get();
  return nullptr;
}

void TConfig::RestoreDefault() noexcept {
  for (const auto& Item : MeasureContainer) Item->RestoreDefault();
}

} // namespace unitlib
