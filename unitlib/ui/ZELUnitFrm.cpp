#include "unitlib/ui/ZELUnitFrm.h"

#include "unitlib/model/ZELUnitMgr.h"
#include "unitlib/notify/ZELUnitRefreshUtils.h"
#include "unitlib/ui/FileLock.h"
#include "unitlib/ui/Toolkit.h"
#include "unitlib/ui/ZELUnitFram.h"

#include <memory>

namespace unitlib {
namespace {

constinit bool Opening = false; // from the before-change listeners until the dialog is closed

/// Marks the dialog as open. A second one would reload the model under the first.
struct TOpenMark {
  TOpenMark() { Opening = true; }
  ~TOpenMark() { Opening = false; }
};

} // namespace

void ExecuteSystemUnitForm(TConfigueType ConfigType, std::u16string_view FileName, const TUnitOKFunc& OnOK,
                           const TLockFileFunc& LockFile) {
  TSystemUnitForm::Execute(ConfigType, FileName, OnOK, LockFile);
}

void TSystemUnitForm::Execute(TConfigueType ConfigType, std::u16string_view FileName, const TUnitOKFunc& OnOK,
                              const TLockFileFunc& LockFile) {
  TUnitRefreshManager* const Manager = UnitRefreshManager();
  if (Opening || (Manager && Manager->IsOnRefreshUnit())) return;

  TUnitOKFunc Then;
  {
    const TOpenMark Mark;
    if (Manager) Manager->RefreshBeforeUnitChange();
    const TDialogLook Look;
    StartToolkit();
    const THostWindow Host; // outlives the form: it owns what it finds below it
    const auto Form = std::make_unique<TSystemUnitForm>(Host.Window(), ConfigType, FileName, OnOK, LockFile);
    const int Result = Form->RunModal();
    if (Result == wxID_CANCEL) Form->Reload();
    if (Result == wxID_OK) Then = Form->FOnOK;
  }
  Then(); // all is closed by now: what the host does in its callback is its own
}

TSystemUnitForm::TSystemUnitForm(wxWindow* Owner, TConfigueType ConfigType, std::u16string_view FileName,
                                 const TUnitOKFunc& OnOK, const TLockFileFunc& LockFile)
    : TUnitDialog(Owner, TUiText::ProjectUnits, "SystemUnitForm"), FConfigType(ConfigType),
      FFileName(FileName), FOnOK(OnOK), FLockFile(LockFile) {
  Reload();
  UpdateExamples();
  FFrame = new TSystemUnitFram(this, FFileName);
  FFrame->Connect(ConfigType, LockFile);
  FFrame->InitGridStyles();
  FitFrame();
  CentreOnParent();
  StartAt(FFrame->cbbUnitType);
}

bool TSystemUnitForm::DoLockFile(std::u16string_view FileName, bool Lock) const {
  return FLockFile ? FLockFile(FileName, Lock) : true;
}

void TSystemUnitForm::FitFrame() {
  const wxSize Size = FFrame->NeededSize();
  SetClientSize(Size);
  FFrame->SetSize(Size);
}

/// The saved state again, whatever was edited.
void TSystemUnitForm::Reload() {
  FreeUnitSystem();
  RunUnlocked([this](bool Lock) { DoLockFile(FFileName, Lock); },
              [this] { InitialUnitSystem(FFileName, FConfigType, true); });
}

} // namespace unitlib
