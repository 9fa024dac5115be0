/// A folder with one file that is saved over and over, each time with something going wrong.
#pragma once

#include "tests/faults/FaultLayer.h"
#include "tests/support/Settings.h"

#include <functional>
#include <set>
#include <string>

namespace unitlib::test {

/// How a save ended.
enum class TSaved { Yes, Refused };

class TSaveTest : public ::testing::Test {
protected:
  TSaveTest();

  std::string Path(const std::string& Name = "units.xml") const { return (FFolder / Name).string(); }
  std::u16string Path16(const std::string& Name = "units.xml") const;
  const std::filesystem::path& Folder() const { return FFolder; }
  std::string Content(const std::string& Name = "units.xml") const;
  void Put(std::string_view Text, const std::string& Name = "units.xml") const;
  /// Names in the folder.
  std::set<std::string> Names() const;

  /// Runs Save with faults armed; anything but success and EFileError fails the test.
  TSaved Try(const std::function<void()>& Save) const;

  TPrivateFolders Folders;

private:
  std::filesystem::path FFolder; // the faults are in here only
};

} // namespace unitlib::test
