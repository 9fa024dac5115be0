#include "unitlib/ui/UnitDialog.h"

#include "unitlib/ui/Toolkit.h"

#include <wx/button.h>
#include <wx/choice.h>
#include <wx/fontenum.h>
#include <wx/settings.h>

namespace unitlib {
namespace {

wxFont DialogFont() {
  constexpr int Points = 8;
  const wxString Face = "Tahoma";
  if (wxFontEnumerator::IsValidFacename(Face)) return wxFont(wxFontInfo(Points).FaceName(Face));
  wxFont Font = wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT);
  Font.SetPointSize(Points);
  return Font;
}

} // namespace

TUnitDialog::TUnitDialog(wxWindow* Owner, TUiText Caption, const wxString& WindowName)
    : wxDialog(Owner, wxID_ANY, ToWx(UiText(Caption)), wxDefaultPosition, wxDefaultSize,
               wxCAPTION | wxSYSTEM_MENU | wxCLOSE_BOX, WindowName) {
  SetFont(DialogFont());
  // The close box ends the dialog as Cancel does, without pressing the button.
  Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent& Event) {
    if (IsModal())
      EndModal(wxID_CANCEL);
    else
      Event.Skip();
  });
  Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& Event) { PressDefaultFromList(Event); });
}

/// Enter in a closed drop-down list presses the default button, as on every platform but this one, where it
/// would open the list (Space and Alt+Down do that too).
void TUnitDialog::PressDefaultFromList(wxKeyEvent& Event) {
  const int Key = Event.GetKeyCode();
  const bool Enter = (Key == WXK_RETURN || Key == WXK_NUMPAD_ENTER) && !Event.HasAnyModifiers();
  if (!Enter || !wxDynamicCast(Event.GetEventObject(), wxChoice)) return Event.Skip();
  if (auto* const Button = wxDynamicCast(GetDefaultItem(), wxButton)) {
    wxCommandEvent Click(wxEVT_BUTTON, Button->GetId());
    Click.SetEventObject(Button);
    Button->ProcessWindowEvent(Click);
  }
}

int TUnitDialog::RunModal() {
  const int Result = FError ? wxID_ABORT : ShowModal();
  if (FError) std::rethrow_exception(std::exchange(FError, nullptr));
  return Result;
}

TUnitDialog* TUnitDialog::Of(wxWindow* Control) {
  return dynamic_cast<TUnitDialog*>(wxGetTopLevelParent(Control));
}

void TUnitDialog::Fail(std::exception_ptr Error) noexcept {
  if (!FError) FError = std::move(Error);
  if (IsModal()) EndModal(wxID_ABORT);
}

} // namespace unitlib
