/// Listeners before and after the units change.
#include "unitlib/capi/Call.h"
#include "unitlib/notify/ZELUnitRefreshUtils.h"

namespace unitlib::capi {
namespace {

TUnitRefreshManager& Manager() {
  if (TUnitRefreshManager* const Found = UnitRefreshManager()) return *Found;
  throw TFailure{UL_ERROR_NOT_AVAILABLE, u"The library is being unloaded"};
}

/// A listener runs with the host's floating-point state.
void CallListener(const TMethod& Self) {
  const THostFloatScope Scope;
  reinterpret_cast<ul_callback>(const_cast<void*>(Self.Code))(Self.Data);
}

THRXRefreshUnit Wrap(ul_callback Listener, void* Context) {
  return THRXRefreshUnit(
      TMethod{Context, reinterpret_cast<const void*>(Listener), reinterpret_cast<void (*)()>(&CallListener)});
}

using TOperation = void (TUnitRefreshManager::*)(const THRXRefreshUnit&);

ul_status Change(TOperation Operation, ul_callback Listener, void* Context) {
  return Call([&] {
    if (!Listener) FailArgument(u"A listener is null");
    (Manager().*Operation)(Wrap(Listener, Context));
  });
}

} // namespace
} // namespace unitlib::capi

using namespace unitlib::capi;
using unitlib::TUnitRefreshManager;

ul_status UL_CALL ul_attach_refresh_unit(ul_callback listener, void* context) {
  return Change(&TUnitRefreshManager::Attach, listener, context);
}
ul_status UL_CALL ul_detach_refresh_unit(ul_callback listener, void* context) {
  return Change(&TUnitRefreshManager::Detach, listener, context);
}
ul_status UL_CALL ul_refresh_unit(void) {
  return Call([] { Manager().RefreshUnit(); });
}
ul_status UL_CALL ul_is_on_refresh_unit(int32_t* running) {
  return Answer(running, [&] { return Manager().IsOnRefreshUnit(); });
}

ul_status UL_CALL ul_attach_before_unit_change(ul_callback listener, void* context) {
  return Change(&TUnitRefreshManager::BeforeUnitChangeAttach, listener, context);
}
ul_status UL_CALL ul_detach_before_unit_change(ul_callback listener, void* context) {
  return Change(&TUnitRefreshManager::BeforeUnitChangeDetach, listener, context);
}
ul_status UL_CALL ul_refresh_before_unit_change(void) {
  return Call([] { Manager().RefreshBeforeUnitChange(); });
}
