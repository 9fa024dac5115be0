/// A settings file is replaced as a whole or not at all, whoever else has it open.
#include "tests/windows/OtherProcess.h"
#include "tests/windows/TestFolder.h"

#include <gmock/gmock.h>

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

namespace windows_test {
namespace {

using testing::HasSubstr;

/// Settings in a file, loaded, with an edit that is not saved yet.
class Replacing : public testing::Test {
protected:
  Replacing() {
    EXPECT_EQ(UL_OK, Generate(File));
    EXPECT_EQ(UL_OK, Load(File));
    Before = ReadBytes(File);
    EXPECT_EQ(UL_OK, ul_set_cur_digit_group_index(1));
  }

  TTestFolder Folder;
  const std::u16string File = Folder.File(L"UnitConfig.xml");
  std::string Before;
};

TEST_F(Replacing, WhileAnotherProcessReadsAsTheLibraryDoes) {
  TOtherProcess Reader("read-sharing-all", File);
  EXPECT_EQ(UL_OK, Save(File)) << LastMessage();
  EXPECT_NE(Before, ReadBytes(File));
  EXPECT_EQ(0u, Reader.End()) << "the reader still sees the file it has opened";
  EXPECT_EQ(L"UnitConfig.xml\n", Folder.List());
}

TEST_F(Replacing, IsRefusedWhileAnotherProcessForbidsIt) {
  {
    TOtherProcess Reader("read-sharing-read", File);
    EXPECT_EQ(UL_ERROR_FILE, Save(File));
    EXPECT_THAT(LastMessage(), HasSubstr("UnitConfig.xml"));
    EXPECT_EQ(Before, ReadBytes(File));
    EXPECT_EQ(L"UnitConfig.xml\n", Folder.List()) << "nothing is left over";
    EXPECT_EQ(0u, Reader.End());
  }
  EXPECT_EQ(UL_OK, Save(File)) << LastMessage();
  EXPECT_NE(Before, ReadBytes(File));
}

TEST_F(Replacing, WaitsForAScannerToLetGo) {
  TOtherProcess Scanner("read-for-a-moment", File);
  EXPECT_EQ(UL_OK, Save(File)) << LastMessage();
  EXPECT_NE(Before, ReadBytes(File));
  EXPECT_EQ(0u, Scanner.End());
}

TEST_F(Replacing, ByTwoProcessesAtOnceLeavesAWholeFile) {
  TOtherProcess Saver("save", File);
  int Saved = 0;
  for (int Round = 0; Round < 100; ++Round) {
    ASSERT_EQ(UL_OK, Load(File)) << LastMessage();
    EXPECT_EQ("5' 6\"", ShownLength());
    const ul_status Status = Save(File);
    if (Status == UL_OK)
      ++Saved;
    else
      ASSERT_EQ(UL_ERROR_FILE, Status) << LastMessage();
  }
  EXPECT_GT(Saved, 0);
  EXPECT_EQ(0u, Saver.End());
  // Wine's own ReplaceFile leaves an empty rf*.tmp where two meet; of the library's temporary files none is
  // left.
  EXPECT_EQ(std::wstring::npos, Folder.List().find(L"UnitConfig.xml.")) << "a temporary file is left";
}

TEST_F(Replacing, KeepsTheReadOnlyMarkInForceOrReplacesTheFile) {
  // What the system decides about a file marked read-only is its own; half a file there is never.
  SetFileAttributesW(Wide(File).c_str(), FILE_ATTRIBUTE_READONLY);
  const ul_status Status = Save(File);
  SetFileAttributesW(Wide(File).c_str(), FILE_ATTRIBUTE_NORMAL);
  if (Status == UL_OK) {
    EXPECT_EQ(UL_OK, Load(File));
    EXPECT_NE(Before, ReadBytes(File));
  } else {
    EXPECT_EQ(UL_ERROR_FILE, Status);
    EXPECT_EQ(Before, ReadBytes(File));
  }
  EXPECT_EQ(L"UnitConfig.xml\n", Folder.List());
}

TEST_F(Replacing, AFolderInItsPlaceIsAnError) {
  const std::u16string Place = Folder.File(L"folder.xml");
  ASSERT_TRUE(CreateDirectoryW(Wide(Place).c_str(), nullptr));
  EXPECT_EQ(UL_ERROR_FILE, Save(Place));
  EXPECT_EQ(L"UnitConfig.xml\nfolder.xml\n", Folder.List());
}

TEST_F(Replacing, InAFolderThatIsNotThereIsAnError) {
  EXPECT_EQ(UL_ERROR_FILE, Save(Folder.File(L"missing\\UnitConfig.xml")));
  EXPECT_EQ(UL_ERROR_FILE, Save(u"Q:\\UnitConfig.xml"));
}

} // namespace
} // namespace windows_test
