/// The project file: every edit a transaction, every bad file a clear error.
#include "apps/takeoff/Project.h"
#include "apps/takeoff/SampleHouse.h"
#include "tests/support/Settings.h"

#include <gmock/gmock.h>

#include <cmath>
#include <filesystem>

#include <csignal>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace unitlib::takeoff {
namespace {

namespace fs = std::filesystem;
using test::TFactorySettings;
using ::testing::HasSubstr;

class TProjectTest : public TFactorySettings {
protected:
  /// A project file with one length of 1676.4 mm.
  std::u16string NewProject() {
    const std::u16string Path = Folders.File("house.takeoff");
    TProjectStore::Create(Path, {Wall()});
    return Path;
  }

  static TItem Wall() {
    TItem Item;
    Item.Name = u"Wall";
    Item.Value = 1676.4;
    return Item;
  }

  /// Changes a project file behind the program's back.
  static void Alter(const std::u16string& Path, const char* Sql) {
    TDatabase(Path, TDatabase::TAccess::Write).Run(Sql);
  }

  static std::string OpenError(const std::u16string& Path) {
    try {
      TProject Project(Path);
      return "opened";
    } catch (const EProjectError& Error) {
      return Error.what();
    }
  }
};

TEST_F(TProjectTest, KeepsEveryEdit) {
  const std::u16string Path = NewProject();
  {
    TProject Project(Path);
    Project.SetName(0, u" North wall ");
    Project.SetMeasure(0, u"Length (Calculation Result)");
    Project.SetValue(0, u"2.5'+6\"");
    Project.SetElevation(0, u"L1+5'");
    Project.Add({Wall(), Wall(), Wall()});
    Project.Delete({3, 1});
  }
  TProject Project(Path);
  ASSERT_EQ(Project.Count(), 2u);
  const TItem& Item = Project.Item(0);
  EXPECT_EQ(Item.Name, u"North wall");
  EXPECT_EQ(Item.Measure, 7);
  EXPECT_NEAR(Item.Value, 914.4, 1e-9);
  EXPECT_EQ(Item.Typed, u"2.5'+6\"");
  EXPECT_EQ(Item.TypedIn, u"Decimal feet");
  EXPECT_EQ(Item.Elevation, u"L1+1.524");
  EXPECT_EQ(Project.Item(1).Name, u"Wall");
}

TEST_F(TProjectTest, StoresValuesToTheLastBit) {
  const std::u16string Path = NewProject();
  const double Value = std::nextafter(1676.4, 2000);
  {
    TItem Item = Wall();
    Item.Value = Value;
    TProject(Path).Add({Item});
  }
  EXPECT_EQ(TProject(Path).Item(1).Value, Value);
}

TEST_F(TProjectTest, RefusedTextsChangeNothing) {
  const std::u16string Path = NewProject();
  TProject Project(Path);
  EXPECT_THROW(Project.SetValue(0, u"abc"), ERefused);
  EXPECT_THROW(Project.SetElevation(0, u"L1+L2"), ERefused);
  EXPECT_THROW(Project.SetMeasure(0, u"Weight"), ERefused);
  EXPECT_EQ(Project.Item(0).Value, 1676.4);
  EXPECT_EQ(Project.Item(0).Elevation, u"");
  EXPECT_EQ(Project.Item(0).Measure, 0);
}

TEST_F(TProjectTest, AValueKeepsItsBaseUnit) {
  TProject Project(NewProject());
  EXPECT_THROW(Project.SetMeasure(0, u"Area"), ERefused);
  Project.SetMeasure(0, u"Elevation/Segment"); // mm as well
  EXPECT_EQ(Project.Item(0).Value, 1676.4);
  Project.SetValue(0, u"0");
  Project.SetMeasure(0, u"Area");
  EXPECT_EQ(Project.Item(0).Measure, 1);
}

TEST_F(TProjectTest, TotalsAreByMeasureAndLeaveOutWhatIsNoNumber) {
  const std::u16string Path = NewProject();
  {
    TItem Area = Wall();
    Area.Measure = 1;
    TItem Unknown = Wall();
    Unknown.Measure = 42;
    TProject(Path).Add({Wall(), Area, Unknown, Wall()});
  }
  Alter(Path, "UPDATE item SET value='no number' WHERE id=5");
  const TTotals Totals = TProject(Path).Totals();
  ASSERT_EQ(Totals.ByMeasure.size(), 2u);
  EXPECT_EQ(Totals.ByMeasure[0].Measure, 0);
  EXPECT_EQ(Totals.ByMeasure[0].Count, 2u);
  EXPECT_NEAR(Totals.ByMeasure[0].Sum, 3352.8, 1e-9);
  EXPECT_EQ(Totals.ByMeasure[1].Measure, 1);
  EXPECT_EQ(Totals.LeftOut, 2u);
}

TEST_F(TProjectTest, SumsKeepSmallItemsBesideLargeOnes) {
  const std::u16string Path = NewProject();
  TProject Project(Path);
  std::vector<TItem> Items(3, Wall());
  Items[0].Value = 1e17;
  Items[1].Value = 1;
  Items[2].Value = -1e17;
  Project.Delete({0});
  Project.Add(Items);
  EXPECT_EQ(Project.Totals().ByMeasure.at(0).Sum, 1);
}

TEST_F(TProjectTest, BadNumbersInTheFileAreFoundAndCanBeReplaced) {
  const std::u16string Path = NewProject();
  for (const char* const Bad : {"9e999", "-9e999", "'abc'", "x'00'"}) {
    Alter(Path, (std::string("UPDATE item SET value=") + Bad).c_str());
    TProject Project(Path);
    EXPECT_TRUE(std::isnan(Project.Item(0).Value)) << Bad;
    Project.SetName(0, u"Renamed"); // does not touch the value
    Project.SetValue(0, u"5'");
    EXPECT_EQ(Project.Item(0).Value, 1524) << Bad;
  }
}

TEST_F(TProjectTest, NeverStoresANaN) {
  TProject Project(NewProject());
  TItem Item = Wall();
  Item.Value = std::nan("");
  EXPECT_THROW(Project.Add({Wall(), Item}), ERefused);
  EXPECT_EQ(Project.Count(), 1u);
}

TEST_F(TProjectTest, StoppedAddsNothing) {
  const std::u16string Path = NewProject();
  {
    TProject Project(Path);
    EXPECT_FALSE(Project.Add(std::vector<TItem>(5000, Wall()), [](std::size_t Done) { return Done < 2000; }));
    EXPECT_EQ(Project.Count(), 1u);
  }
  EXPECT_EQ(TProject(Path).Count(), 1u);
}

TEST_F(TProjectTest, NamesWhatIsWrongWithAFile) {
  EXPECT_THAT(OpenError(Folders.File("none.takeoff")), HasSubstr("does not exist"));
  EXPECT_THAT(OpenError(Folders.File("docs")), HasSubstr("is a folder"));

  test::WriteBytes(Folders.File("text.takeoff"), std::string(5000, 'x'));
  EXPECT_THAT(OpenError(Folders.File("text.takeoff")), HasSubstr("it is not a database"));

  test::WriteBytes(Folders.File("empty.takeoff"), "");
  EXPECT_THAT(OpenError(Folders.File("empty.takeoff")), HasSubstr("is empty"));

  TDatabase(Folders.File("other.takeoff"), TDatabase::TAccess::Create).Run("CREATE TABLE item(id)");
  EXPECT_THAT(OpenError(Folders.File("other.takeoff")), HasSubstr("database of another program"));

  const std::u16string Newer = NewProject();
  Alter(Newer, "PRAGMA user_version=2");
  EXPECT_THAT(OpenError(Newer), HasSubstr("newer version"));
}

TEST_F(TProjectTest, DoesNotTouchDatabasesOfOthers) {
  const std::u16string Path = Folders.File("other.takeoff");
  TDatabase(Path, TDatabase::TAccess::Create).Run("PRAGMA journal_mode=WAL; CREATE TABLE item(id)");
  const std::string Before = test::ReadBytes(Path);
  OpenError(Path);
  EXPECT_EQ(test::ReadBytes(Path), Before);
}

TEST_F(TProjectTest, ADamagedFileIsReported) {
  const std::u16string Path = Folders.File("house.takeoff");
  TProjectStore::Create(Path, std::vector<TItem>(2000, Wall()));
  std::string Bytes = test::ReadBytes(Path);
  std::fill(Bytes.begin() + 4096, Bytes.end() - 4096, '\xA5');
  test::WriteBytes(Path, Bytes);
  EXPECT_THAT(OpenError(Path), HasSubstr("is damaged"));
}

TEST_F(TProjectTest, IsLockedWhileOpen) {
  const std::u16string Path = NewProject();
  const TProject First(Path);
  EXPECT_THAT(OpenError(Path), HasSubstr("in use by another program"));
}

TEST_F(TProjectTest, AWriteProtectedFileCanBeReadOnly) {
  const std::u16string Path = NewProject();
  fs::permissions(fs::path(Path), fs::perms::owner_read);
  {
    TProject Project(Path);
    EXPECT_TRUE(Project.ReadOnly());
    EXPECT_EQ(Project.Count(), 1u);
    EXPECT_THROW(Project.SetValue(0, u"5'"), EProjectError);
    EXPECT_THROW(Project.Add({Wall()}), EProjectError);
    EXPECT_THROW(Project.Delete({0}), EProjectError);
    EXPECT_EQ(Project.Item(0).Value, 1676.4);
  }
  fs::permissions(fs::path(Path), fs::perms::owner_all);
}

TEST_F(TProjectTest, CreateReplacesNothing) {
  const std::u16string Path = NewProject();
  EXPECT_THROW(TProjectStore::Create(Path), EProjectError);
  EXPECT_EQ(TProject(Path).Count(), 1u);
}

TEST_F(TProjectTest, SampleOpensAndEveryCellCanBeShown) {
  const std::u16string Path = Folders.File("sample.takeoff");
  TProjectStore::Create(Path, SampleHouse());
  const TProject Project(Path);
  EXPECT_GE(Project.Count(), 20u);
  EXPECT_EQ(Project.Totals().LeftOut, 0u);
}

/// What became of a child that worked on its own.
template <class TBody> int InChild(TBody Body) {
  const pid_t Child = fork();
  if (Child == 0) {
    Body();
    _exit(0);
  }
  int Status = 0;
  waitpid(Child, &Status, 0);
  return Status;
}

TEST_F(TProjectTest, AFullDiskChangesNothing) {
  const std::u16string Path = NewProject();
  const int Status = InChild([&] {
    TProject Project(Path);
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit Limit{8192, 8192};
    setrlimit(RLIMIT_FSIZE, &Limit);
    try {
      Project.Add(std::vector<TItem>(5000, Wall()));
      _exit(1);
    } catch (const EProjectError&) {
      _exit(Project.Count() == 1 ? 0 : 2);
    }
  });
  EXPECT_EQ(Status, 0);
  EXPECT_EQ(TProject(Path).Count(), 1u);
}

/// Edits without end; the number of each finished edit goes into the pipe.
[[noreturn]] void EditForEver(const std::u16string& Path, int Pipe) {
  TProject Project(Path);
  for (std::uint32_t Edit = 1;; ++Edit) {
    Project.SetValue(0, FromUtf8(std::to_string(Edit) + "\""));
    if (write(Pipe, &Edit, sizeof Edit) != sizeof Edit) _exit(1);
  }
}

/// The last finished edit of a process that is killed after Microseconds of editing.
std::uint32_t KillWhileEditing(const std::u16string& Path, useconds_t Microseconds) {
  int Ends[2];
  if (pipe(Ends) != 0) return 0;
  const pid_t Child = fork();
  if (Child == 0) EditForEver(Path, Ends[1]);
  close(Ends[1]);
  std::uint32_t Last = 0;
  if (read(Ends[0], &Last, sizeof Last) != sizeof Last) Last = 0; // it has begun
  usleep(Microseconds);
  kill(Child, SIGKILL);
  waitpid(Child, nullptr, 0);
  for (std::uint32_t Edit = 0; read(Ends[0], &Edit, sizeof Edit) == sizeof Edit;) Last = Edit;
  close(Ends[0]);
  return Last;
}

TEST_F(TProjectTest, KilledAtAnyMomentKeepsEveryFinishedEdit) {
  constexpr int Kills = 100;
  const std::u16string Path = NewProject();
  for (int I = 0; I < Kills; ++I) {
    const std::uint32_t Last = KillWhileEditing(Path, static_cast<useconds_t>(I * 97));
    ASSERT_GT(Last, 0u);
    TProject Project(Path);
    // The edit after the last finished one may have reached the disk before the kill.
    const double Edit = Project.Item(0).Value / 25.4;
    EXPECT_TRUE(std::abs(Edit - Last) < 1e-6 || std::abs(Edit - Last - 1) < 1e-6)
        << Edit << " after " << Last;
  }
}

} // namespace
} // namespace unitlib::takeoff
