#include "unitlib/ui/UnitDialog.h"

#include "unitlib/ui/Toolkit.h"

#include <wx/button.h>
#include <wx/choice.h>
#include <wx/fontenum.h>
#include <wx/settings.h>

#include <algorithm>
#include <vector>

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

constinit TUnitDialog* Innermost = nullptr;

/// Every control below a window that the keyboard can reach, in the order of creation.
void CollectTabStops(const wxWindow& Parent, std::vector<wxWindow*>& Stops) {
  for (wxWindow* const Child : Parent.GetChildren()) {
    if (!Child->IsShown() || !Child->IsEnabled()) continue;
    if (Child->GetChildren().empty() && Child->AcceptsFocusFromKeyboard()) Stops.push_back(Child);
    CollectTabStops(*Child, Stops);
  }
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
  Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& Event) { Guard([&] { HandleKey(Event); }); });
}

/// Keys that GTK alone treats otherwise in a drop-down list: Enter would open a closed one, which Space and
/// Alt+Down do too, instead of pressing the default button; and a focus that Tab brings there would not be
/// known to the toolkit.
void TUnitDialog::HandleKey(wxKeyEvent& Event) {
  auto* const From = dynamic_cast<wxWindow*>(Event.GetEventObject());
  const int Key = Event.GetKeyCode();
  const bool Plain = !Event.HasModifiers(); // Shift is none
  if (Plain && (Key == WXK_RETURN || Key == WXK_NUMPAD_ENTER) && dynamic_cast<wxChoice*>(From))
    return PressDefault();
#ifdef __WXGTK__
  if (Plain && Key == WXK_TAB && From) return MoveFocus(From, Event.ShiftDown());
#endif
  Event.Skip();
}

void TUnitDialog::PressDefault() {
  auto* const Button = dynamic_cast<wxButton*>(GetDefaultItem());
  if (!Button || !Button->IsEnabled()) return;
  wxCommandEvent Click(wxEVT_BUTTON, Button->GetId());
  Click.SetEventObject(Button);
  Button->ProcessWindowEvent(Click);
}

/// The focus to the next control in the order of creation, and from the last to the first.
void TUnitDialog::MoveFocus(wxWindow* From, bool Backward) {
  std::vector<wxWindow*> Order;
  CollectTabStops(*this, Order);
  if (Order.empty()) return;
  if (Backward) std::reverse(Order.begin(), Order.end());
  const auto At = std::find(Order.begin(), Order.end(), From);
  const bool Last = At == Order.end() || At + 1 == Order.end();
  (Last ? Order.front() : *(At + 1))->SetFocus();
}

int TUnitDialog::RunModal() {
  struct TMark {
    TUnitDialog* const Outer = Innermost;
    explicit TMark(TUnitDialog* Dialog) { Innermost = Dialog; }
    ~TMark() { Innermost = Outer; }
  } const Mark(this);
  if (FFirst) {
    FFirst->SetFocus();
    CallAfter(
        [this] { FFirst->SetFocus(); }); // once more when it is on screen: not every window manager does it
  }
  const int Result = FError ? wxID_ABORT : ShowModal();
  if (FError) std::rethrow_exception(std::exchange(FError, nullptr));
  return Result;
}

TUnitDialog* TUnitDialog::Running() noexcept {
  return Innermost;
}

TUnitDialog* TUnitDialog::Of(wxWindow* Control) {
  return dynamic_cast<TUnitDialog*>(wxGetTopLevelParent(Control));
}

void TUnitDialog::Fail(std::exception_ptr Error) noexcept {
  if (!FError) FError = std::move(Error);
  if (IsModal()) EndModal(wxID_ABORT);
}

} // namespace unitlib
