/// What both dialogs have in common: look, errors of event handlers, the modal run.
#pragma once

#include "unitlib/ui/UiTexts.h"

#include <wx/dialog.h>

#include <exception>

namespace unitlib {

/// A modal dialog whose event handlers never let an error into the toolkit's loop: the first one is kept,
/// ends the dialog and leaves RunModal.
class TUnitDialog : public wxDialog {
public:
  TUnitDialog(wxWindow* Owner, TUiText Caption, const wxString& WindowName);

  /// Runs the body of an event handler.
  template <class TBody> void Guard(TBody Body) noexcept {
    try {
      Body();
    } catch (...) {
      Fail(std::current_exception());
    }
  }

  /// Shows the dialog until it ends.
  /// return      wxID_OK or wxID_CANCEL
  /// errors      the first error of a handler
  int RunModal();

  /// The innermost dialog that RunModal shows at present; null when there is none.
  static TUnitDialog* Running() noexcept;
  /// The dialog of a control; null when it stands in another window.
  static TUnitDialog* Of(wxWindow* Control);

protected:
  /// The control that has the focus when the dialog opens.
  void StartAt(wxWindow* Control) { FFirst = Control; }

private:
  void HandleKey(wxKeyEvent& Event);
  void PressDefault();
  void MoveFocus(wxWindow* From, bool Backward);
  void Fail(std::exception_ptr Error) noexcept;

  std::exception_ptr FError;
  wxWindow* FFirst = nullptr;
};

} // namespace unitlib
