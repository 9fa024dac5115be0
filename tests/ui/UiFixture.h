/// A host for the dialogs: settings file of its own, callbacks that write down every call.
#pragma once

#include "tests/support/Settings.h"
#include "tests/support/TextPrinter.h"
#include "tests/ui/DialogDriver.h"
#include "unitlib/rtl/Prompt.h"
#include "unitlib/ui/StringGrid.h"
#include "unitlib/ui/Toolkit.h"
#include "unitlib/ui/UnitDialogs.h"
#include "unitlib/ui/ZELUnitFormatFrm.h"
#include "unitlib/ui/ZELUnitFram.h"
#include "unitlib/ui/ZELUnitFrm.h"

#include <wx/frame.h>

#include <functional>
#include <string>

namespace unitlib::test {

/// The factory settings in a file "project.xml" with US imperial units chosen, and a host window.
class TUiFixture : public ::testing::Test {
protected:
  TUiFixture();
  ~TUiFixture() override;

  /// Opens the Project Units dialog with both callbacks.
  void Execute() { TSystemUnitForm::Execute(CYAmInch, File, OnOK(), LockFile()); }
  TUnitOKFunc OnOK() { return MethodOf<&TUiFixture::HandleOK>(this); }
  TLockFileFunc LockFile() { return MethodOf<&TUiFixture::HandleLock>(this); }
  std::string Bytes() const { return ReadBytes(File); }
  /// Rewrites the settings file: Edit changes the loaded model, which is then saved and freed.
  void EditFile(const std::function<void()>& Edit);
  /// Replaces text in the settings file, at least once.
  void ReplaceInFile(const std::string& Old, const std::string& New);

  TPrivateFolders Folders;
  std::u16string File;
  wxFrame* Host;
  TDialogDriver Driver;
  std::string Calls; // "unlock lock ok ..." in order
  std::function<void(bool Lock)> DuringLock = [](bool) {};
  std::function<void()> DuringOK = [] {};

private:
  bool HandleLock(std::u16string_view FileName, bool Lock);
  void HandleOK();
};

// The controls of an open dialog.
template <class T = wxWindow> T& Control(wxDialog& Dialog, const char* Name) {
  return Find<T>(Dialog, Name);
}
wxButton& MeasureButton(wxDialog& Dialog, int ClassifyCode);
std::string Caption(wxDialog& Dialog, int ClassifyCode);
std::string Selected(wxDialog& Dialog, const char* ListName);
/// Chooses an item of a drop-down list with the arrow keys, as a user would.
void Choose(wxDialog& Dialog, const char* ListName, int Item);
void Click(wxDialog& Dialog, const char* ButtonName);

/// Every window of a dialog inside its parent, siblings apart from one another, labels and buttons as large
/// as they need.
void ExpectNothingOverlapsOrIsCut(wxWindow& Parent);

} // namespace unitlib::test
