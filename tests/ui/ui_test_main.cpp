/// Starts wxWidgets as a host that uses it does, then runs the tests.
#include <wx/app.h>
#include <wx/init.h>

#include <gtest/gtest.h>

namespace {

class TTestApp : public wxApp {
public:
  bool OnInit() override {
    SetExitOnFrameDelete(false);
    return true;
  }
  /// A wrong use of the toolkit fails the test that did it.
  void OnAssertFailure(const wxChar* File, int Line, const wxChar*, const wxChar* Condition,
                       const wxChar* Message) override {
    ADD_FAILURE() << wxString(File).utf8_string() << ":" << Line << ": " << wxString(Condition).utf8_string()
                  << " " << wxString(Message).utf8_string();
  }
};

} // namespace

int main(int Count, char** Arguments) {
  ::testing::InitGoogleTest(&Count, Arguments);
  wxApp::SetInstance(new TTestApp);
  if (!wxEntryStart(Count, Arguments) || !wxTheApp->CallOnInit()) return 2;
  const int Result = RUN_ALL_TESTS();
  wxEntryCleanup();
  return Result;
}
