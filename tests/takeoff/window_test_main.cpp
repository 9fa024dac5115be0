/// Starts wxWidgets and runs the tests; or, as a process to be killed, types into a host without end.
#include "tests/takeoff/KilledHost.h"
#include "unitlib/rtl/FileFolders.h"
#include "unitlib/rtl/Text.h"

#include <wx/app.h>
#include <wx/init.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <string_view>

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

bool StartToolkit(int& Count, char** Arguments) {
  wxApp::SetInstance(new TTestApp);
  return wxEntryStart(Count, Arguments) && wxTheApp->CallOnInit();
}

} // namespace

int main(int Count, char** Arguments) {
  if (Count == 3 && std::string_view(Arguments[1]) == "--type-for-ever") {
    const std::u16string Project = unitlib::FromUtf8(Arguments[2]);
    unitlib::SetCommonDocumentsPath(std::filesystem::path(Project).parent_path().u16string());
    Count = 1;
    if (StartToolkit(Count, Arguments)) unitlib::takeoff::TypeForEver(Project);
    return 2;
  }
  ::testing::InitGoogleTest(&Count, Arguments);
  if (!StartToolkit(Count, Arguments)) return 2;
  const int Result = RUN_ALL_TESTS();
  wxEntryCleanup();
  return Result;
}
