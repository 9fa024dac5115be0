/// Plays the user: does prepared steps in each modal dialog that opens, with real key and mouse events.
#pragma once

#include <wx/dialog.h>
#include <wx/modalhook.h>

#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace unitlib::test {

/// Lets the window system and the toolkit work until events sent so far have had their effect.
void Settle(int Milliseconds = 25);
/// The same until a condition holds, at most two seconds; false when it never does.
bool WaitFor(const std::function<bool()>& Condition);

void PressKey(int Key, int Modifiers = 0);
void TypeText(const char* Text);
void ClickOn(wxWindow& Window);
void PressMouseOn(wxWindow& Window, int FromRight = 10);
void ReleaseMouse();
void FocusOn(wxWindow& Window);

/// Name of the window that has the focus; "" when none of this program has.
std::string FocusName();

template <class T> T& Find(wxWindow& Parent, const wxString& Name) {
  auto* const Window = dynamic_cast<T*>(wxWindow::FindWindowByName(Name, &Parent));
  if (!Window) throw std::runtime_error("no window named " + Name.utf8_string());
  return *Window;
}

void SaveScreenshot(const std::string& Name);

/// While it lives, the n-th modal dialog that opens is driven by the n-th step. A step runs inside the
/// dialog's own loop and must end the dialog; one that does not fails the test. Message boxes are answered
/// with OK and remembered.
class TDialogDriver : public wxModalDialogHook {
public:
  using TStep = std::function<void(wxDialog&)>;

  TDialogDriver() { Register(); }
  ~TDialogDriver() override;

  void Next(TStep Step) { FSteps.push_back(std::move(Step)); }
  /// Message boxes are shown from now on, each driven by the next step.
  void ShowMessageBoxes() { FShowBoxes = true; }

  int DialogsOpened = 0;
  int Patience = 80;              // milliseconds a dialog is left alone before its step
  std::vector<std::string> Boxes; // "title: text" of each message box

protected:
  int Enter(wxDialog* Dialog) override;

private:
  void Drive(wxDialog& Dialog, const TStep& Step) const;

  std::deque<TStep> FSteps;
  bool FShowBoxes = false;
  wxDialog* FFileDialog = nullptr; // announced last; only compared
};

} // namespace unitlib::test
