#include "unitlib/notify/ZELUnitRefreshUtils.h"

#include "unitlib/ZELUnitPackage.h"

namespace unitlib {
namespace {

[[gnu::used]] constexpr TPackageAnchor Anchor = LoadUnitPackage; // a program that only listens is started too

// A plain pointer: it is freed by the package at its place in the order, never by the end of the process.
constinit TUnitRefreshManager* Manager = nullptr;

} // namespace

bool THRXRefreshUnitEventList::Exist(const THRXRefreshUnit& AEvent) const noexcept {
  return IndexOf(AEvent) != -1;
}

THRXRefreshUnit THRXRefreshUnitEventList::GetItems(int AIndex) const {
  return THRXRefreshUnit(GetMethodByIndex(AIndex));
}

void THRXRefreshUnitEventList::Attach(const THRXRefreshUnit& AEvent) {
  DoAttach(AEvent, u"");
}

void THRXRefreshUnitEventList::Detach(const THRXRefreshUnit& AEvent) {
  DoDetach(AEvent);
}

void THRXRefreshUnitEventList::DoEvent() {
  // The listeners as they are now: positions may move while the run lasts.
  std::vector<THRXRefreshUnit> Run;
  Run.reserve(static_cast<size_t>(GetCount()));
  for (int I = 0; I < GetCount(); ++I) Run.push_back(Items(I));

  for (const THRXRefreshUnit& Listener : Run)
    if (Exist(Listener)) Listener(); // one detached meanwhile may be gone with its object
}

TUnitRefreshManager::TUnitRefreshManager()
    : FAfterUnitChangeRefreshEventList(std::make_unique<THRXRefreshUnitEventList>()),
      FBeforeUnitChangeRefreshEventList(std::make_unique<THRXRefreshUnitEventList>()) {}

TUnitRefreshManager::~TUnitRefreshManager() = default; // frees the before-change list first

void TUnitRefreshManager::Attach(const THRXRefreshUnit& AEvent) {
  if (!FAfterUnitChangeRefreshEventList->Exist(AEvent)) FAfterUnitChangeRefreshEventList->Attach(AEvent);
}

void TUnitRefreshManager::Detach(const THRXRefreshUnit& AEvent) {
  if (FAfterUnitChangeRefreshEventList->Exist(AEvent)) FAfterUnitChangeRefreshEventList->Detach(AEvent);
}

void TUnitRefreshManager::BeforeUnitChangeAttach(const THRXRefreshUnit& AEvent) {
  if (!FBeforeUnitChangeRefreshEventList->Exist(AEvent)) FBeforeUnitChangeRefreshEventList->Attach(AEvent);
}

void TUnitRefreshManager::BeforeUnitChangeDetach(const THRXRefreshUnit& AEvent) {
  if (FBeforeUnitChangeRefreshEventList->Exist(AEvent)) FBeforeUnitChangeRefreshEventList->Detach(AEvent);
}

void TUnitRefreshManager::RefreshUnit() {
  // The value before the call comes back, so that a call made by a listener leaves the outer run marked.
  struct TRestore {
    bool& Flag;
    const bool Before = Flag;
    ~TRestore() { Flag = Before; }
  } Restore{FOnRefreshUnit};
  FOnRefreshUnit = true;
  FAfterUnitChangeRefreshEventList->DoEvent();
}

void TUnitRefreshManager::RefreshBeforeUnitChange() {
  FBeforeUnitChangeRefreshEventList->DoEvent();
}

TUnitRefreshManager* UnitRefreshManager() noexcept {
  return Manager;
}

void CreateUnitRefreshManager() {
  if (!Manager) Manager = new TUnitRefreshManager;
}

void FreeUnitRefreshManager() noexcept {
  delete std::exchange(Manager, nullptr);
}

} // namespace unitlib
