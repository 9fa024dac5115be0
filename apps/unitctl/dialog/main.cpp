/// unitctl-dialog FILE SYSTEM [TEXTS]: the Project Units dialog on a settings file, for "unitctl dialog".
/// SYSTEM is the position of the unit system to begin with where the file has no choice.
#include "apps/common/Platform.h"
#include "apps/common/Utf8.h"
#include "apps/unitctl/dialog/DialogStatus.h"
#include "unitlib/rtl/FileFolders.h"
#include "unitlib/rtl/UserTexts.h"
#include "unitlib/ui/UnitDialogs.h"

#include <cstdio>
#include <exception>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

namespace unitlib::app {
namespace {

/// The library writes a working copy into the documents folder; here that is a folder of this run.
class TWorkFolder {
public:
  TWorkFolder()
      : FPath(std::filesystem::temp_directory_path() /
              ("unitctl-dialog-" + std::to_string(std::random_device()()))) {
    std::filesystem::create_directory(FPath);
    SetCommonDocumentsPath(FPath.u16string());
  }
  ~TWorkFolder() {
    std::error_code Ignored;
    std::filesystem::remove_all(FPath, Ignored);
  }
  TWorkFolder(const TWorkFolder&) = delete;
  TWorkFolder& operator=(const TWorkFolder&) = delete;

private:
  std::filesystem::path FPath;
};

void NoteOK(void* Status) {
  *static_cast<int*>(Status) = DialogSaved;
}

int Run(const std::vector<std::string>& Arguments) {
  if (Arguments.size() > 2 && !Arguments[2].empty()) LoadTextTable(FromTerminal(Arguments[2]));
  const TWorkFolder Folder;
  int Status = DialogCancelled;
  ExecuteSystemUnitForm(static_cast<TConfigueType>(std::stoi(Arguments[1])), FromTerminal(Arguments[0]),
                        TUnitOKFunc::Of<&NoteOK>(&Status));
  return Status;
}

} // namespace
} // namespace unitlib::app

int main(int Count, char** Values) {
  using namespace unitlib::app;
  platform::PrepareStreams();
  const std::vector<std::string> Arguments = platform::Arguments(Count, Values);
  if (Arguments.size() < 2) {
    std::fputs("unitctl-dialog: started by  unitctl dialog FILE\n", stderr);
    return DialogFailed;
  }
  try {
    return Run(Arguments);
  } catch (const std::exception& Error) {
    std::fprintf(stderr, "unitctl: %s\n", Printable(Error.what()).c_str());
    return DialogFailed;
  }
}
