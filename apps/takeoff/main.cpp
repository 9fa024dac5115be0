/// takeoff: the sample host of unitlib.
///   takeoff [--settings FILE] [--new] [PROJECT]
#include "apps/takeoff/DataFolder.h"
#include "apps/takeoff/TakeoffFrame.h"
#include "unitlib/rtl/FileFolders.h"
#include "unitlib/rtl/Text.h"
#include "unitlib/ui/Toolkit.h"

#include <wx/app.h>
#include <wx/cmdline.h>
#include <wx/filename.h>
#include <wx/utils.h>

#include <cstdio>

namespace unitlib::takeoff {
namespace {

/// The user's folder for data of this program.
std::u16string UserDataFolder() {
  wxString Shared;
  if (!wxGetEnv("XDG_DATA_HOME", &Shared) || !Shared.StartsWith("/"))
    Shared = wxFileName::GetHomeDir() + "/.local/share";
  return FromWx(Shared + "/takeoff");
}

class TTakeoffApp final : public wxApp {
public:
  bool OnInit() override {
    SetAppName("takeoff");
    // Where usage and mistakes in the options are told. The toolkit owns it and frees it at the end.
    delete wxMessageOutput::Set(new wxMessageOutputStderr); // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks)
    if (!wxApp::OnInit()) return false;
    try {
      return Start();
    } catch (const EUnitError& Error) {
      ShowError(nullptr, Error.Message());
      return false;
    }
  }

  void OnInitCmdLine(wxCmdLineParser& Parser) override {
    wxApp::OnInitCmdLine(Parser);
    Parser.AddOption("", "settings", "unit settings to use (default: beside the project, NAME.units.xml)");
    Parser.AddSwitch("", "new", "make PROJECT, which must not exist yet");
    Parser.AddSwitch("", "version", "show the version");
    Parser.AddParam("PROJECT", wxCMD_LINE_VAL_STRING, wxCMD_LINE_PARAM_OPTIONAL);
  }

  bool OnCmdLineParsed(wxCmdLineParser& Parser) override {
    if (Parser.Found("version")) {
      std::puts("takeoff " UNITLIB_VERSION);
      std::fflush(stdout);
      std::exit(0); // NOLINT(concurrency-mt-unsafe): there is one thread yet
    }
    wxString Settings;
    if (Parser.Found("settings", &Settings)) FSettings = FromWx(Settings);
    FNew = Parser.Found("new");
    if (Parser.GetParamCount() > 0) FProject = FromWx(Parser.GetParam());
    if (!FNew || !FProject.empty()) return wxApp::OnCmdLineParsed(Parser);
    std::fputs("takeoff: --new needs the name of the project\n", stderr);
    return false;
  }

private:
  bool Start() {
    const TDataFolder Data(UserDataFolder());
    SetCommonDocumentsPath(
        Data.Path()); // the library's working copy of the settings stays out of the documents
    if (FNew) TProjectStore::Create(FProject);
    auto* const Frame = new TTakeoffFrame(FSettings);
    try {
      OpenFirst(*Frame, Data);
    } catch (...) {
      Frame->Destroy();
      throw;
    }
    Frame->Show();
    Data.Remember(Frame->Project()->Path());
    return true;
  }

  /// The project that was named; else the last one, and the sample when that cannot be opened any more.
  void OpenFirst(TTakeoffFrame& Frame, const TDataFolder& Data) {
    if (!FProject.empty()) return Frame.Open(FProject);
    const std::u16string Last = Data.ProjectToOpen();
    try {
      Frame.Open(Last);
    } catch (const EUnitError& Error) {
      if (Last == Data.SampleProject()) throw;
      ShowError(nullptr, Error.Message());
      Frame.Open(Data.SampleProject());
    }
  }

  std::optional<std::u16string> FSettings;
  std::u16string FProject;
  bool FNew = false;
};

} // namespace
} // namespace unitlib::takeoff

using unitlib::takeoff::TTakeoffApp;
wxIMPLEMENT_APP(TTakeoffApp);
