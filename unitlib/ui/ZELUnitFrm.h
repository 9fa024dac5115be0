/// The modal form "Project Units".
#pragma once

#include "unitlib/ui/UnitDialog.h"
#include "unitlib/ui/UnitDialogs.h"

#include <string>

namespace unitlib {

class TSystemUnitFram;

/// Loads the settings file afresh, lets the user edit the settings in its frame, and commits (OK) or discards
/// them.
class TSystemUnitForm : public TUnitDialog {
public:
  /// Opens the dialog and returns when it is closed. Does nothing while after-change listeners run or while
  /// the dialog is open already. Before-change listeners are called first; after OK, OnOK.
  /// errors      those
  /// of loading and saving, of listeners and callbacks: the dialog has ended then, everything is
  ///             freed, and the file is locked again. EUnitError when there is no window system.
  static void Execute(TConfigueType ConfigType, std::u16string_view FileName, const TUnitOKFunc& OnOK,
                      const TLockFileFunc& LockFile);

  TSystemUnitForm(wxWindow* Owner, TConfigueType ConfigType, std::u16string_view FileName,
                  const TUnitOKFunc& OnOK, const TLockFileFunc& LockFile);

  /// The host's answer, or true without a TLockFileFunc.
  bool DoLockFile(std::u16string_view FileName, bool Lock) const;
  TSystemUnitFram* Frame() const noexcept { return FFrame; }

  /// Takes the size the frame needs.
  void FitFrame();

private:
  void Reload();

  TConfigueType FConfigType;
  std::u16string FFileName;
  TUnitOKFunc FOnOK;
  TLockFileFunc FLockFile;
  TSystemUnitFram* FFrame = nullptr; // a child window, freed with the form
};

} // namespace unitlib
