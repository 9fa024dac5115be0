/// A private folder with settings for one test; nothing outside it is written.
#pragma once

#include "tests/support/TextPrinter.h"
#include "unitlib/model/ZELUnitMgr.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <ostream>
#include <string>

namespace unitlib {

namespace test {

/// Temporary folder that serves as program folder and as common documents folder; removed at the end.
class TPrivateFolders {
public:
  TPrivateFolders();
  ~TPrivateFolders();
  TPrivateFolders(const TPrivateFolders&) = delete;
  TPrivateFolders& operator=(const TPrivateFolders&) = delete;

  const std::filesystem::path& Root() const { return FRoot; }
  /// Path of a file in the folder.
  std::u16string File(std::string_view Name) const;
  std::u16string WorkingCopy() const { return File("docs/Quillmere/ZEL/9.0/SysUnit.xml"); }

private:
  std::filesystem::path FRoot;
};

/// Factory settings loaded with one configuration current; freed at the end.
class TFactorySettings : public ::testing::Test {
protected:
  explicit TFactorySettings(TConfigueType Config = CYAmInch);
  ~TFactorySettings() override;

  /// Unit Index of the first measure with this classify code, made current.
  static TUnit& UseUnit(int ClassifyCode, int Index);

  TPrivateFolders Folders;
};

std::string ReadBytes(std::u16string_view Path);
void WriteBytes(std::u16string_view Path, std::string_view Content);

/// A name for a table row that a test may be called by.
std::string RowName(std::string Text);

/// A file of the project: SourceFile("docs/estimators.md").
std::filesystem::path SourceFile(std::string_view Name);

/// Path of the shared sample data, or empty when this machine has none.
std::string SharedData(std::string_view Name);

} // namespace test
} // namespace unitlib
