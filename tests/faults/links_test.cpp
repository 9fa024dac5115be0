/// What a save does to links, to other file systems, and to what stands beside the file.
#include "tests/faults/SaveTest.h"

#include "unitlib/rtl/Errors.h"
#include "unitlib/rtl/Files.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace unitlib::test {
namespace {

namespace fs = std::filesystem;
using TNames = std::set<std::string>;

class Links : public TSaveTest {
protected:
  void Save(const std::string& Text, const std::string& Name = "units.xml") const {
    WriteWholeFile(Path16(Name), Text);
  }
};

TEST_F(Links, AChainOfSymbolicLinksIsFollowed) {
  fs::create_directories(Folder() / "a/b");
  Put("old", "a/b/real.xml");
  fs::create_symlink("b/real.xml", Folder() / "a/second.xml");
  fs::create_symlink(Folder() / "a/second.xml", Folder() / "units.xml");
  Save("new");
  EXPECT_EQ(Content("a/b/real.xml"), "new");
  EXPECT_TRUE(fs::is_symlink(Folder() / "units.xml") && fs::is_symlink(Folder() / "a/second.xml"));
}

TEST_F(Links, AFolderThatIsALinkIsFollowed) {
  fs::create_directory(Folder() / "real");
  fs::create_directory_symlink("real", Folder() / "link");
  Save("new", "link/units.xml");
  EXPECT_EQ(Content("real/units.xml"), "new");
}

TEST_F(Links, AHardLinkIsLeftBehind) {
  Put("old");
  fs::create_hard_link(Folder() / "units.xml", Folder() / "other.xml");
  Save("new");
  EXPECT_EQ(Content(), "new");
  EXPECT_EQ(Content("other.xml"), "old") << "whole, too";
}

TEST_F(Links, ALinkOntoAnotherFileSystem) {
  const fs::path Elsewhere = fs::path(UNITLIB_BINARY_DIR) / ("faults-" + std::to_string(getpid()));
  fs::create_directory(Elsewhere);
  WriteBytes((Elsewhere / "real.xml").u16string(), "old");
  fs::create_symlink(Elsewhere / "real.xml", Folder() / "units.xml");
  Save("new");
  EXPECT_EQ(ReadBytes((Elsewhere / "real.xml").u16string()), "new");
  EXPECT_TRUE(fs::is_symlink(Folder() / "units.xml"));
  EXPECT_EQ(Names(), TNames{"units.xml"});
  fs::remove_all(Elsewhere);
}

TEST_F(Links, WhatIsNoFileIsNotReplaced) {
  fs::create_directory(Folder() / "units.xml");
  EXPECT_THROW(Save("new"), EFileError);
  ASSERT_EQ(mkfifo(Path("pipe").c_str(), 0666), 0);
  EXPECT_THROW(Save("new", "pipe"), EFileError);
  EXPECT_THROW(WriteWholeFile(u"/dev/null", "new"), EFileError);
  EXPECT_EQ(Names(), (TNames{"pipe", "units.xml"}));
}

TEST_F(Links, PermissionsAreKept) {
  Put("old");
  ASSERT_EQ(chmod(Path().c_str(), 0640), 0);
  Save("new");
  EXPECT_EQ(static_cast<unsigned>(fs::status(Folder() / "units.xml").permissions()), 0640U);
}

TEST_F(Links, APathWithNulIsNotCut) {
  EXPECT_THROW(WriteWholeFile(Path16() + std::u16string(u"\0.bak", 5), "new"), EFileError);
  Put("old");
  EXPECT_THROW(ReadWholeFile(Path16() + std::u16string(u"\0.bak", 5)), EFileError);
  EXPECT_EQ(Content(), "old");
}

// What is taken for left over: only what a save itself would name so, and only what nobody holds.
TEST_F(Links, OnlyLeftoversAreRemoved) {
  const TNames Kept = {"units.xml.tmp",     "units.xml.1.tmp",       "units.xml.1-.tmp",
                       "units.xml.-1.tmp",  "units.xml.1-1.tmp.xml", "units.xml.a-1.tmp",
                       "units.xml.1-1",     "nits.xml.1-1.tmp",      "units.xml.1-1-1.tmp",
                       "other.xml.1-1.tmp", "units.xml.1-b.tmp",     "xunits.xml.1-1.tmp"};
  for (const auto& Name : Kept) Put("mine", Name);
  Put("half", "units.xml.1-1.tmp");
  Put("half", "units.xml.4711-20.tmp");
  Put("in the works", "units.xml.9-9.tmp");
  const int Held = open(Path("units.xml.9-9.tmp").c_str(), O_RDWR | O_CLOEXEC);
  ASSERT_EQ(flock(Held, LOCK_EX), 0);
  Save("new");
  TNames Expected = Kept;
  Expected.insert({"units.xml", "units.xml.9-9.tmp"});
  EXPECT_EQ(Names(), Expected);
  close(Held);
  Save("new");
  Expected.erase("units.xml.9-9.tmp");
  EXPECT_EQ(Names(), Expected);
}

} // namespace
} // namespace unitlib::test
