#include "tests/ui/DialogDriver.h"

#include <wx/app.h>
#include <wx/filedlg.h>
#include <wx/msgdlg.h>
#include <wx/stopwatch.h>
#include <wx/uiaction.h>
#include <wx/utils.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <utility>

namespace unitlib::test {
namespace {

constexpr long MostWaiting = 10'000; // milliseconds, for a machine that has much else to do

} // namespace

void Settle(int Milliseconds) {
  const wxStopWatch Watch;
  do {
    wxYield();
    wxMilliSleep(4);
  } while (Watch.Time() < Milliseconds);
}

bool WaitFor(const std::function<bool()>& Condition) {
  const wxStopWatch Watch;
  while (!Condition() && Watch.Time() < MostWaiting) Settle(10);
  return Condition();
}

void PressKey(int Key, int Modifiers) {
  wxUIActionSimulator().Char(Key, Modifiers);
  Settle();
}

void TypeText(const char* Text) {
  wxUIActionSimulator().Text(Text);
  Settle();
}

void PressMouseOn(wxWindow& Window, int FromRight) {
  const wxRect Place = Window.GetScreenRect();
  wxUIActionSimulator Simulator;
  Simulator.MouseMove(Place.GetRight() - FromRight, Place.y + Place.height / 2);
  Settle();
  Simulator.MouseDown();
  Settle();
}

void ReleaseMouse() {
  wxUIActionSimulator().MouseUp();
  Settle();
}

void ClickOn(wxWindow& Window) {
  PressMouseOn(Window);
  ReleaseMouse();
}

void FocusOn(wxWindow& Window) {
  Window.SetFocus();
  Settle();
  WaitFor([&] { return wxWindow::FindFocus() == &Window; });
}

std::string FocusName() {
  const wxWindow* const Focus = wxWindow::FindFocus();
  return Focus ? Focus->GetName().utf8_string() : "";
}

void SaveScreenshot(const std::string& Name) {
  const char* const Folder = std::getenv("UNITLIB_SCREENSHOTS");
  if (!Folder) return;
  Settle(150);
  const std::string Command = "import -window root '" + std::string(Folder) + "/" + Name + ".png'";
  if (std::system(Command.c_str()) != 0) ADD_FAILURE() << "no screenshot " << Name;
}

TDialogDriver::~TDialogDriver() {
  Unregister();
  EXPECT_TRUE(FSteps.empty()) << FSteps.size() << " dialogs have not opened";
}

int TDialogDriver::Enter(wxDialog* Dialog) {
  // The system's file dialog is announced twice: as itself and as a dialog.
  if (dynamic_cast<wxFileDialog*>(Dialog) && std::exchange(FFileDialog, Dialog) != Dialog) return wxID_NONE;
  if (auto* const Box = dynamic_cast<wxMessageDialog*>(Dialog)) {
    Boxes.push_back((Box->GetTitle() + ": " + Box->GetMessage()).utf8_string());
    if (!FShowBoxes) return wxID_OK;
  }
  ++DialogsOpened;
  if (FSteps.empty()) {
    ADD_FAILURE() << "unexpected dialog " << Dialog->GetTitle().utf8_string();
    return wxID_CANCEL;
  }
  Dialog->CallAfter([this, Dialog, Step = std::move(FSteps.front())] { Drive(*Dialog, Step); });
  FSteps.pop_front();
  return wxID_NONE;
}

void TDialogDriver::Drive(wxDialog& Dialog, const TStep& Step) const {
  Settle(Patience);
  try {
    Step(Dialog);
  } catch (const std::exception& E) {
    ADD_FAILURE() << "in dialog " << Dialog.GetTitle().utf8_string() << ": " << E.what();
  }
  if (::testing::Test::HasFailure()) {
    const auto* const Info = ::testing::UnitTest::GetInstance()->current_test_info();
    SaveScreenshot(std::string("failed_") + Info->name());
  }
  if (dynamic_cast<wxMessageDialog*>(&Dialog)) return; // the system's own: not asked whether it is modal
  if (!WaitFor([&] { return !Dialog.IsModal(); })) {
    ADD_FAILURE() << "dialog " << Dialog.GetTitle().utf8_string() << " is still open";
    Dialog.EndModal(wxID_CANCEL);
  }
}

} // namespace unitlib::test
