#include "tests/support/Settings.h"

#include "unitlib/model/ZELUnitConfigFileGenerator.h"
#include "unitlib/rtl/FileFolders.h"
#include "unitlib/rtl/Text.h"

#include <atomic>
#include <cstdlib>
#include <fstream>
#include <random>
#include <sstream>

namespace unitlib::test {
namespace fs = std::filesystem;

namespace {

fs::path NewFolder() {
  static std::atomic<unsigned> Counter{0};
  std::random_device Random;
  const auto Name = "unitlib-test-" + std::to_string(Random()) + "-" + std::to_string(++Counter);
  const fs::path Path = fs::temp_directory_path() / Name;
  fs::create_directories(Path / "docs");
  return Path;
}

std::u16string Text(const fs::path& Path) {
  return Path.u16string();
}

} // namespace

TPrivateFolders::TPrivateFolders() : FRoot(NewFolder()) {
  SetExePath(Text(FRoot));
  SetCommonDocumentsPath(Text(FRoot / "docs"));
}

TPrivateFolders::~TPrivateFolders() {
  SetExePath({});
  SetCommonDocumentsPath({});
  std::error_code Ignored;
  fs::remove_all(FRoot, Ignored);
}

std::u16string TPrivateFolders::File(std::string_view Name) const {
  return Text((FRoot / fs::u8path(Name)).make_preferred());
}

TFactorySettings::TFactorySettings(TConfigueType Config) {
  GenerateUnitDefaultConfigFile();
  InitialUnitSystem(u"", Config, false);
}

TFactorySettings::~TFactorySettings() {
  FreeUnitSystem();
}

TUnit& TFactorySettings::UseUnit(int ClassifyCode, int Index) {
  TMeasure* Measure = TSystemUnitDataManager::CurConfigMeasure(ClassifyCode);
  Measure->CurUnitIndex = Index;
  return *Measure->GetCurUnit();
}

std::string ReadBytes(std::u16string_view Path) {
  std::ifstream File(fs::path(Path), std::ios::binary);
  std::ostringstream Content;
  Content << File.rdbuf();
  return Content.str();
}

void WriteBytes(std::u16string_view Path, std::string_view Content) {
  std::ofstream File(fs::path(Path), std::ios::binary);
  File.write(Content.data(), static_cast<std::streamsize>(Content.size()));
}

std::string RowName(std::string Name) {
  for (char& C : Name)
    if (!std::isalnum(static_cast<unsigned char>(C))) C = '_';
  return Name;
}

fs::path SourceFile(std::string_view Name) {
  return fs::path(UNITLIB_SOURCE_DIR) / Name;
}

std::string SharedData(std::string_view Name) {
  const char* Folder = std::getenv("UNITLIB_SHARED_DATA");
  const fs::path Path = (Folder ? fs::path(Folder) : SourceFile("../shared/data")) / Name;
  return fs::exists(Path) ? Path.string() : std::string();
}

} // namespace unitlib::test
