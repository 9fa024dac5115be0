/// The dialog with its callbacks.
#include "unitlib/capi/DialogHost.h"
#include "unitlib/capi/ModelPlace.h"
#include "unitlib/capi/Texts.h"
#include "unitlib/rtl/Errors.h"
#include "unitlib/rtl/Text.h"

#include <typeinfo>

namespace unitlib::capi {
namespace {

using TLockFunction16 = ul_lock_file;
using TLockFunction8 = ul_lock_file_u8;

int32_t CallLock(TLockFunction16 Function, void* Context, const std::u16string& File, bool Lock) {
  const int32_t Length = CheckedLength(File.size());
  const THostFloatScope Scope;
  return Function(Context, File.c_str(), Length, Lock);
}

int32_t CallLock(TLockFunction8 Function, void* Context, const std::u16string& File, bool Lock) {
  const std::string Name = ToUtf8(File);
  const int32_t Length = CheckedLength(Name.size());
  const THostFloatScope Scope;
  return Function(Context, Name.c_str(), Length, Lock);
}

/// The host's callbacks during one call; notes what the dialog has come to.
template <class TLockFunction> class TDialogCall {
public:
  TDialogCall(ul_callback OnOK, void* OKContext, TLockFunction LockFile, void* LockContext)
      : FOnOK(OnOK), FOKContext(OKContext), FLockFile(LockFile), FLockContext(LockContext) {}

  void OK() {
    FOutcome = UL_DIALOG_OK;
    if (!FOnOK) return;
    const THostFloatScope Scope;
    FOnOK(FOKContext);
  }

  bool Lock(std::u16string_view File, bool ALock) {
    if (FOutcome == UL_DIALOG_NOT_OPENED)
      FOutcome = UL_DIALOG_CANCEL; // the dialog loads the file first of all
    return !FLockFile || CallLock(FLockFile, FLockContext, std::u16string(File), ALock) != 0;
  }

  int32_t Outcome() const noexcept { return FOutcome; }

private:
  ul_callback FOnOK;
  void* FOKContext;
  TLockFunction FLockFile;
  void* FLockContext;
  int32_t FOutcome = UL_DIALOG_NOT_OPENED;
};

/// Errors of a kind of their own are about the toolkit: there is no window system.
[[noreturn]] void FailToolkit(const EUnitError& Error) {
  if (typeid(Error) != typeid(EUnitError)) throw;
  throw TFailure{UL_ERROR_NOT_AVAILABLE, Error.Message()};
}

template <class C, class TLockFunction>
ul_status ProjectUnits(int32_t ConfigType, TIn<C> File, ul_callback OnOK, void* OKContext,
                       TLockFunction LockFile, void* LockContext, int32_t* Outcome) {
  using TDialog = TDialogCall<TLockFunction>;
  return Call([&] {
    TDialog Dialog(OnOK, OKContext, LockFile, LockContext);
    try {
      RunProjectUnits(RequireConfigType(ConfigType), Read(File), MethodOf<&TDialog::OK>(&Dialog),
                      MethodOf<&TDialog::Lock>(&Dialog));
    } catch (const EUnitError& Error) {
      FailToolkit(Error);
    }
    if (Outcome) *Outcome = Dialog.Outcome();
  });
}

} // namespace
} // namespace unitlib::capi

using namespace unitlib::capi;

ul_status UL_CALL ul_dialogs_available(int32_t* available) {
  return Answer(available, [&] { return HasDialogs(); });
}

ul_status UL_CALL ul_project_units_dialog(int32_t config_type, const ul_char16* file, int32_t length,
                                          ul_callback on_ok, void* ok_context, ul_lock_file lock_file,
                                          void* lock_context, int32_t* outcome) {
  return ProjectUnits(config_type, TIn{file, length}, on_ok, ok_context, lock_file, lock_context, outcome);
}
ul_status UL_CALL ul_project_units_dialog_u8(int32_t config_type, const char* file, int32_t length,
                                             ul_callback on_ok, void* ok_context, ul_lock_file_u8 lock_file,
                                             void* lock_context, int32_t* outcome) {
  return ProjectUnits(config_type, TIn{file, length}, on_ok, ok_context, lock_file, lock_context, outcome);
}

ul_status UL_CALL ul_free_dialogs(void) {
  return Call([] { EndDialogs(); });
}
