/// The process-wide refresh manager: who is told before and after the project's units change.
#pragma once

#include "unitlib/notify/ZELUnitEventList.h"

#include <memory>

namespace unitlib {

/// A listener: a member function (or function with context) without arguments and result.
///   UnitRefreshManager()->Attach(MethodOf<&TGrid::Redraw>(&Grid));
using THRXRefreshUnit = TMethodPtr<void()>;

/// An event list of listeners of this one type.
class THRXRefreshUnitEventList : public TUnitEventList {
public:
  bool Exist(const THRXRefreshUnit& AEvent) const noexcept;
  /// errors      EListError AIndex is outside 0 .. GetCount() - 1
  THRXRefreshUnit GetItems(int AIndex) const;
  THRXRefreshUnit Items(int AIndex) const { return GetItems(AIndex); }

  /// Appends the listener with an empty description.
  void Attach(const THRXRefreshUnit& AEvent);
  void Detach(const THRXRefreshUnit& AEvent);

  /// Calls every listener in order of attachment; an error of one ends the run and passes to the caller.
  /// A listener may attach and detach: those attached during the run are not called in it, those detached
  /// before their turn neither, all others once.
  void DoEvent();
};

/// Two lists of listeners, each listener at most once per list. Attaching one that is there and detaching one
/// that is not there change nothing.
class TUnitRefreshManager {
public:
  TUnitRefreshManager();
  TUnitRefreshManager(const TUnitRefreshManager&) = delete;
  TUnitRefreshManager& operator=(const TUnitRefreshManager&) = delete;
  ~TUnitRefreshManager();

  /// True while RefreshUnit runs; the Project Units dialog does not open then.
  bool IsOnRefreshUnit() const noexcept { return FOnRefreshUnit; }

  /// Listeners called after the units have changed.
  void Attach(const THRXRefreshUnit& AEvent);
  void Detach(const THRXRefreshUnit& AEvent);
  /// Listeners called before the units change.
  void BeforeUnitChangeAttach(const THRXRefreshUnit& AEvent);
  void BeforeUnitChangeDetach(const THRXRefreshUnit& AEvent);

  /// Fired by the host once it has applied new settings. Errors of listeners pass through, IsOnRefreshUnit
  /// being what it was before the call.
  void RefreshUnit();
  /// Fired by the Project Units dialog before it opens.
  void RefreshBeforeUnitChange();

private:
  std::unique_ptr<THRXRefreshUnitEventList> FAfterUnitChangeRefreshEventList;
  std::unique_ptr<THRXRefreshUnitEventList> FBeforeUnitChangeRefreshEventList;
  bool FOnRefreshUnit = false;
};

/// The one manager of the process; null before the library is started and after it is shut down.
TUnitRefreshManager* UnitRefreshManager() noexcept;

/// Start-up and shut-down, called by the package in its fixed order. Creating twice keeps the first manager.
void CreateUnitRefreshManager();
void FreeUnitRefreshManager() noexcept;

} // namespace unitlib
