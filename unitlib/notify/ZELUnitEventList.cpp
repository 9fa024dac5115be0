#include "unitlib/notify/ZELUnitEventList.h"

#include "unitlib/rtl/OwningList.h"

#include <algorithm>

namespace unitlib {

int TUnitEventList::IndexOf(const TMethod& AEvent) const noexcept {
  const auto Found = std::find(FEvents.begin(), FEvents.end(), AEvent);
  return Found == FEvents.end() ? -1 : static_cast<int>(Found - FEvents.begin());
}

bool TUnitEventList::SameEvent(const TMethod& A, const TMethod& B) noexcept {
  return A == B;
}

int TUnitEventList::GetCount() const noexcept {
  return static_cast<int>(FEvents.size());
}

TMethod TUnitEventList::GetMethodByIndex(int AIndex) const {
  return FEvents[Checked(AIndex)];
}

std::u16string TUnitEventList::GetDescriptions(int AIndex) const {
  return FDescriptions[Checked(AIndex)];
}

void TUnitEventList::Attach(const TMethod& AEvent, std::u16string_view ADescription) {
  DoAttach(AEvent, ADescription);
}

void TUnitEventList::Detach(const TMethod& AEvent) {
  DoDetach(AEvent);
}

void TUnitEventList::DoAttach(const TMethod& AEvent, std::u16string_view ADescription) {
  std::u16string Description(ADescription);
  FEvents.reserve(FEvents.size() + 1); // so that the second array is the last thing that can fail
  FDescriptions.push_back(std::move(Description));
  FEvents.push_back(AEvent);
}

void TUnitEventList::DoDetach(const TMethod& AEvent) {
  const int Index = IndexOf(AEvent);
  if (Index < 0) return;
  FEvents.erase(FEvents.begin() + Index);
  FDescriptions.erase(FDescriptions.begin() + Index);
}

size_t TUnitEventList::Checked(int AIndex) const {
  if (AIndex < 0 || AIndex >= GetCount()) RaiseListIndex(AIndex);
  return static_cast<size_t>(AIndex);
}

} // namespace unitlib
