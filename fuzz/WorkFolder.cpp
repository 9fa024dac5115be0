#include "fuzz/WorkFolder.h"

#include "fuzz/Check.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace unitlib::fuzz {
namespace {

namespace fs = std::filesystem;

class TFolder {
public:
  TFolder() {
    FPath = (fs::temp_directory_path() / "unitlib-fuzz-XXXXXX").string();
    if (!mkdtemp(FPath.data())) Fail("no folder for files: " + FPath);
  }
  ~TFolder() {
    std::error_code Ignored;
    fs::remove_all(FPath, Ignored);
  }
  const std::string& Path() const { return FPath; }

private:
  std::string FPath;
};

} // namespace

std::string WorkPath(std::string_view Name) {
  static const TFolder Folder;
  return Folder.Path() + "/" + std::string(Name);
}

std::string ReadFile(const std::string& Path) {
  std::ifstream Stream(Path, std::ios::binary);
  return {std::istreambuf_iterator<char>(Stream), std::istreambuf_iterator<char>()};
}

void WriteFile(const std::string& Path, std::string_view Content) {
  std::ofstream Stream(Path, std::ios::binary | std::ios::trunc);
  Stream.write(Content.data(), static_cast<std::streamsize>(Content.size()));
  if (!Stream.flush()) Fail("cannot write " + Path);
}

} // namespace unitlib::fuzz
