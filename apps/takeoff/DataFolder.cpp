#include "apps/takeoff/DataFolder.h"

#include "apps/takeoff/ProjectStore.h"
#include "apps/takeoff/SampleHouse.h"
#include "unitlib/rtl/FileFolders.h"
#include "unitlib/rtl/Files.h"
#include "unitlib/rtl/Text.h"

#include <filesystem>
#include <system_error>

namespace unitlib::takeoff {
namespace {
namespace fs = std::filesystem;

constexpr std::u16string_view SampleName = u"Sample house.takeoff";
constexpr std::u16string_view LastName = u"last-project.txt";

bool Exists(std::u16string_view Path) {
  std::error_code Ignored;
  return fs::exists(fs::path(Path), Ignored);
}

} // namespace

TDataFolder::TDataFolder(std::u16string_view Path) : FPath(IncludeTrailingPathDelimiter(Path)) {
  ForceDirectories(FPath);
}

std::u16string TDataFolder::SampleProject() const {
  std::u16string Path = FPath + std::u16string(SampleName);
  if (!Exists(Path)) TProjectStore::Create(Path, SampleHouse());
  return Path;
}

std::u16string TDataFolder::ProjectToOpen() const {
  const std::u16string Last = FPath + std::u16string(LastName);
  try {
    if (Exists(Last))
      if (std::u16string Project = Trim(FromUtf8(ReadWholeFile(Last))); Exists(Project)) return Project;
  } catch (const EUnitError&) {
    // A note of the program's own: without it the sample opens.
  }
  return SampleProject();
}

void TDataFolder::Remember(std::u16string_view Project) const {
  std::error_code Failed;
  const fs::path Absolute = fs::absolute(fs::path(Project), Failed);
  try {
    if (!Failed) WriteWholeFile(FPath + std::u16string(LastName), ToUtf8(Absolute.u16string()));
  } catch (const EUnitError&) {
    // As above.
  }
}

std::u16string SettingsBeside(std::u16string_view Project) {
  return fs::path(Project).replace_extension(u".units.xml").u16string();
}

std::u16string WithExtension(std::u16string_view Project) {
  fs::path Path(Project);
  if (!Path.has_extension()) Path.replace_extension(u".takeoff");
  return Path.u16string();
}

std::u16string ProjectTitle(std::u16string_view Project) {
  return fs::path(Project).stem().u16string();
}

} // namespace unitlib::takeoff
