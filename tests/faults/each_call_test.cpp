/// Every call that a save makes fails once, in every way it can; and at every call something else happens.
#include "tests/faults/SaveTest.h"

#include "unitlib/model/ZELUnitConfigFileGenerator.h"
#include "unitlib/rtl/Errors.h"
#include "unitlib/rtl/FileFolders.h"
#include "unitlib/rtl/Files.h"

#include <cerrno>

namespace unitlib::test {
namespace {

namespace fs = std::filesystem;
using TNames = std::set<std::string>;

const std::string Old(100000, 'o'), New(150000, 'n'), Other(120000, 'x');
constexpr long Enough = 1000; // calls no save makes

/// A way to save, and what it does to a folder.
struct TSaveRow {
  const char* Name;
  void (*Prepare)(const fs::path& Folder);
  void (*Save)(const fs::path& Folder);
  const char* File; // that is saved
  TNames Before, After;
};

void PutInto(const fs::path& File, const std::string& Text) {
  WriteBytes(File.u16string(), Text);
}
void SaveTo(const fs::path& File) {
  WriteWholeFile(File.u16string(), New);
}

const TSaveRow SaveRows[] = {
    {"OverAFile",
     [](const fs::path& F) { PutInto(F / "units.xml", Old); },
     [](const fs::path& F) { SaveTo(F / "units.xml"); },
     "units.xml",
     {"units.xml"},
     {"units.xml"}},
    {"AFirstTime",
     [](const fs::path&) {},
     [](const fs::path& F) { SaveTo(F / "units.xml"); },
     "units.xml",
     {},
     {"units.xml"}},
    {"ThroughALink",
     [](const fs::path& F) {
       PutInto(F / "target.xml", Old);
       fs::create_symlink("target.xml", F / "units.xml");
     },
     [](const fs::path& F) { SaveTo(F / "units.xml"); },
     "target.xml",
     {"target.xml", "units.xml"},
     {"target.xml", "units.xml"}},
    {"ThroughALinkToNothing",
     [](const fs::path& F) { fs::create_symlink("target.xml", F / "units.xml"); },
     [](const fs::path& F) { SaveTo(F / "units.xml"); },
     "target.xml",
     {"units.xml"},
     {"target.xml", "units.xml"}},
    {"WithLeftovers",
     [](const fs::path& F) {
       PutInto(F / "units.xml", Old);
       PutInto(F / "units.xml.1-1.tmp", "half");
     },
     [](const fs::path& F) { SaveTo(F / "units.xml"); },
     "units.xml",
     {"units.xml", "units.xml.1-1.tmp"},
     {"units.xml"}},
};

class EachCall : public TSaveTest, public testing::WithParamInterface<TSaveRow> {
protected:
  /// A fresh folder as the row wants it.
  void Prepare() const {
    for (const auto& Name : Names()) fs::remove_all(Folder() / Name);
    GetParam().Prepare(Folder());
    ASSERT_EQ(Names(), GetParam().Before);
  }

  std::string Saved() const {
    return fs::exists(Folder() / GetParam().File) ? Content(GetParam().File) : std::string();
  }

  /// The file is whole: the new one after a success, the old one after a failure.
  void CheckWhole(TSaved Result, const std::string& Before) const {
    const std::string Now = Saved();
    EXPECT_TRUE(Now == (Result == TSaved::Yes ? New : Before)) << Now.size() << " bytes";
    for (const auto& Name : GetParam().Before) // links stay links
      EXPECT_TRUE(Name == "units.xml.1-1.tmp" || fs::is_symlink(fs::symlink_status(Folder() / Name)) ==
                                                     (Name == "units.xml" && GetParam().File != Name));
  }

  /// A save without faults, after which nothing is left of those with.
  void CheckThatSavingWorksOn() const {
    EXPECT_EQ(Try([&] { GetParam().Save(Folder()); }), TSaved::Yes);
    EXPECT_TRUE(Saved() == New);
    EXPECT_EQ(Names(), GetParam().After);
  }

  /// One fault at each call in turn until a save meets none. Leftovers: they may stay after a failure.
  void FailEach(int Kind, int Error, bool Leftovers) const {
    for (long Call = 1; Call < Enough; ++Call) {
      SCOPED_TRACE("call " + std::to_string(Call) + ", error " + std::to_string(Error));
      Prepare();
      const std::string Before = Saved(), Under = Folder().string();
      arm_faults(Under.c_str(), Call, Kind, Error, nullptr, nullptr);
      long Seen = 0;
      const TSaved Result = Try([&] {
        GetParam().Save(Folder());
        Seen = disarm_faults();
      });
      CheckWhole(Result, Before);
      if (!Leftovers) CheckNames(Result);
      CheckThatSavingWorksOn();
      if (Result == TSaved::Yes && Seen < Call) {
        EXPECT_GT(Call, 10) << "the layer sees the calls";
        return;
      }
    }
    FAIL() << "there is no end";
  }

  /// Nothing is left of the temporary file; what a killed process left may still be there.
  void CheckNames(TSaved Result) const {
    TNames Found = Names();
    Found.erase("units.xml.1-1.tmp");
    TNames Expected = Result == TSaved::Yes ? GetParam().After : GetParam().Before;
    Expected.erase("units.xml.1-1.tmp");
    EXPECT_EQ(Found, Expected);
  }
};

TEST_P(EachCall, FailsOnce) {
  for (const int Error : {EIO, ENOSPC, EDQUOT, EROFS, EACCES, EEXIST, EINTR})
    FailEach(fault_error, Error, false);
}

// What has to be known or done for a safe save ends it; what is only tidy, or tells nothing new, does not.
TEST_P(EachCall, EndsTheSaveOrDoesNotMatter) {
  const TNames Ends = {"create",   "faccessat", "fchmod", "fsync", "lstat",
                       "readlink", "rename",    "stat",   "write"};
  const TNames DoesNotMatter = {"close",        "fchown", "flock",       "fstat",
                                "fsync_folder", "open",   "open_folder", "unlink"};
  const std::string Under = Folder().string();
  for (long Call = 1; Call < Enough; ++Call) {
    Prepare();
    arm_faults(Under.c_str(), Call, fault_error, EIO, nullptr, nullptr);
    const TSaved Result = Try([&] { GetParam().Save(Folder()); });
    const std::string Failed = call_gone_wrong();
    if (Failed.empty()) return;
    EXPECT_TRUE(Ends.contains(Failed) || DoesNotMatter.contains(Failed)) << Failed;
    EXPECT_EQ(Result, Ends.contains(Failed) ? TSaved::Refused : TSaved::Yes) << Failed;
  }
  FAIL() << "there is no end";
}

// The new file is whole on the disk before it takes the old one's place, and then so is its name.
TEST_P(EachCall, ComesInASafeOrder) {
  Prepare();
  const std::string Under = Folder().string();
  arm_faults(Under.c_str(), 0, fault_error, 0, nullptr, nullptr);
  ASSERT_EQ(Try([&] { GetParam().Save(Folder()); }), TSaved::Yes);
  const std::string Calls = calls_seen();
  std::size_t Place = 0;
  for (const char* Next :
       {"create ", "flock ", "write ", "fsync ", "rename ", "open_folder ", "fsync_folder "}) {
    Place = Calls.find(Next, Place);
    ASSERT_NE(Place, std::string::npos) << Next << "is missing in " << Calls;
  }
}

TEST_P(EachCall, AndAllThatFollow) {
  // Then the temporary file cannot be removed either; the next save does it.
  for (const int Error : {EIO, ENOSPC}) FailEach(fault_all_errors, Error, true);
}

TEST_P(EachCall, WritesAHalf) {
  FailEach(fault_short, 0, false);
}

TEST_P(EachCall, WritesNothing) {
  FailEach(fault_nothing, 0, false);
}

TEST_P(EachCall, LeavesADiskFull) {
  const std::string Under = Folder().string();
  for (const long Room : {0L, 1L, 4096L, 99999L, 149999L, 150000L}) {
    SCOPED_TRACE(Room);
    Prepare();
    const std::string Before = Saved();
    arm_full_disk(Under.c_str(), Room);
    const TSaved Result = Try([&] { GetParam().Save(Folder()); });
    EXPECT_EQ(Result, Room < 150000 ? TSaved::Refused : TSaved::Yes);
    CheckWhole(Result, Before);
    CheckNames(Result);
  }
}

TEST_P(EachCall, MeetsAnotherSave) {
  fs::path Place = Folder();
  for (long Call = 1; Call < Enough; ++Call) {
    SCOPED_TRACE(Call);
    Prepare();
    const std::string Under = Folder().string();
    auto SaveOther = [](void* Self) {
      WriteWholeFile((*static_cast<const fs::path*>(Self) / "units.xml").u16string(), Other);
    };
    arm_faults(Under.c_str(), Call, fault_meanwhile, 0, SaveOther, &Place);
    long Seen = 0;
    EXPECT_EQ(Try([&] {
                GetParam().Save(Folder());
                Seen = disarm_faults();
              }),
              TSaved::Yes);
    const std::string Now = Saved();
    EXPECT_TRUE(Now == New || Now == Other) << Now.size() << " bytes";
    EXPECT_EQ(Names(), GetParam().After) << "neither has removed the other's temporary file, both their own";
    if (Seen < Call) return;
  }
  FAIL() << "there is no end";
}

TEST_P(EachCall, MeetsTheEndOfTheFolder) {
  fs::path Place = Folder();
  for (long Call = 1; Call < Enough; ++Call) {
    SCOPED_TRACE(Call);
    fs::create_directories(Folder());
    Prepare();
    const std::string Under = Folder().string();
    auto RemoveFolder = [](void* Self) { fs::remove_all(*static_cast<const fs::path*>(Self)); };
    arm_faults(Under.c_str(), Call, fault_meanwhile, 0, RemoveFolder, &Place);
    const TSaved Result = Try([&] { GetParam().Save(Folder()); });
    if (fs::exists(Folder())) {
      EXPECT_EQ(Result, TSaved::Yes) << "all calls were made before";
      return;
    }
  }
  FAIL() << "there is no end";
}

INSTANTIATE_TEST_SUITE_P(Rows, EachCall, testing::ValuesIn(SaveRows),
                         [](const auto& Info) { return std::string(Info.param.Name); });

// ---------------------------------------------------------------- what all of the library saves with

/// A call of the library that saves; errors of others than the file system are none of it.
struct TLibraryRow {
  const char* Name;
  void (*Save)();
  const char* File; // under the program's folder
};

const TLibraryRow LibraryRows[] = {
    {"SaveConfigFile", [] { TSystemUnitDataManager::SaveConfigFile({}); }, "UnitConfig.xml"},
    {"SavetoModel", [] { TSystemUnitDataManager::SavetoModel(CYAmInch); },
     "docs/Quillmere/ZEL/9.0/SysUnit.xml"},
    {"SetCurretnConfigueType", [] { TSystemUnitDataManager::SetCurretnConfigueType(CYAmInch, true); },
     "docs/Quillmere/ZEL/9.0/SysUnit.xml"},
};

class LibrarySave : public TFactorySettings, public testing::WithParamInterface<TLibraryRow> {};

TEST_P(LibrarySave, IsWholeOrNotAtAll) {
  const std::u16string File = Folders.File(GetParam().File);
  TSystemUnitDataManager::SetCurDigitGroupIndex(0);
  GetParam().Save();
  const std::string Before = ReadBytes(File);
  const std::string Under = Folders.Root().string();
  TSystemUnitDataManager::SetCurDigitGroupIndex(1);
  int Refused = 0;
  for (long Call = 1; Call < Enough; ++Call) {
    SCOPED_TRACE(Call);
    WriteBytes(File, Before);
    arm_faults(Under.c_str(), Call, fault_error, EIO, nullptr, nullptr);
    bool Saved = true;
    try {
      GetParam().Save();
    } catch (const EFileError& Error) {
      Saved = false;
      EXPECT_EQ(fs::path(Error.Path()).root_directory(), "/");
    }
    const long Seen = disarm_faults();
    Refused += !Saved;
    const std::string Now = ReadBytes(File);
    EXPECT_EQ(Now == Before, !Saved);
    EXPECT_NE(Now.find("</Unit>\n", Now.size() - 8), std::string::npos);
    if (Seen >= Call) continue;
    EXPECT_GT(Refused, 5);
    return;
  }
  FAIL() << "there is no end";
}

INSTANTIATE_TEST_SUITE_P(Rows, LibrarySave, testing::ValuesIn(LibraryRows),
                         [](const auto& Info) { return std::string(Info.param.Name); });

// A new working copy, with its folders.
TEST_F(TSaveTest, FoldersOfTheWorkingCopy) {
  GenerateUnitDefaultConfigFile(Path16());
  const std::string Under = Path("docs");
  SetCommonDocumentsPath(Path16("docs"));
  for (long Call = 1; Call < Enough; ++Call) {
    fs::remove_all(Folder() / "docs");
    arm_faults(Under.c_str(), Call, fault_error, ENOSPC, nullptr, nullptr);
    long Seen = 0;
    const TSaved Result = Try([&] {
      InitialUnitSystem(Path16(), CYAmInch, true);
      Seen = disarm_faults();
    });
    const fs::path Copy = Folder() / "docs/Quillmere/ZEL/9.0/SysUnit.xml";
    EXPECT_EQ(fs::exists(Copy), Result == TSaved::Yes);
    FreeUnitSystem();
    if (Result == TSaved::Yes && Seen < Call) return;
  }
  FAIL() << "there is no end";
}

} // namespace
} // namespace unitlib::test
