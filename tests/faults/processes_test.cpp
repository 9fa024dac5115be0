/// Saving processes that fail, are killed or come together: a host in C, and unitctl.
#include "tests/faults/SaveTest.h"
#include "tests/support/Process.h"

#include "unitlib/model/ZELUnitConfigFileGenerator.h"

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <iostream>
#include <random>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace unitlib::test {
namespace {

namespace fs = std::filesystem;
using TNames = std::set<std::string>;
using TCommand = std::vector<std::string>;

/// Settings files that differ in their digit group, as the library writes them.
class SavingProcess : public TSaveTest {
protected:
  SavingProcess() {
    GenerateUnitDefaultConfigFile(Path16());
    TSystemUnitDataManager::InitUnitSystemSetting(Path16());
    TSystemUnitDataManager::SetCurConfig(0);
    auto& Configs = TSystemUnitDataManager::CurUseUnitConfigContainer();
    while (Configs.Count() > 1) Configs.Delete(1); // a smaller file is saved more often
    for (int Group : {0, 1}) {
      TSystemUnitDataManager::SetCurDigitGroupIndex(Group);
      TSystemUnitDataManager::SaveConfigFile({});
      Version[Group] = Content();
    }
    FreeUnitSystem();
    fs::permissions(Folders.Root(), fs::perms::all); // for processes without rights
    fs::permissions(Folder(), fs::perms::all);
  }

  TCommand Host(int Group, const std::string& Count = "1") const {
    return {UNITLIB_SAVE_HOST, Path(), Path("docs"), std::to_string(Group), Count};
  }
  static TCommand HostAsNobody(TCommand Command) {
    Command.emplace_back("nobody");
    return Command;
  }
  TCommand Unitctl() const { return {UNITLIB_UNITCTL, "--settings", Path(), "group", "1,2345,6789.00"}; }

  bool IsOneOfBoth() const {
    const std::string Now = Content();
    return Now == Version[0] || Now == Version[1];
  }

  std::string Version[2];
};

std::vector<std::string> Fault(const fs::path& Folder, long Call, const std::string& Kind) {
  return {"LD_PRELOAD=" UNITLIB_FAULT_PRELOAD, "UNITLIB_FAULT_FOLDER=" + Folder.string(),
          "UNITLIB_FAULT=" + std::to_string(Call) + " " + Kind,
          // The layer stands before the sanitizer's own functions, which is all right here.
          "ASAN_OPTIONS=verify_asan_link_order=0:detect_leaks=0"};
}

struct TFaultRow {
  const char* Name;
  bool Unitctl; // or the host in C
  std::string Kind;
};

class FaultyProcess : public SavingProcess, public testing::WithParamInterface<TFaultRow> {};

TEST_P(FaultyProcess, LeavesAWholeFile) {
  const bool Kills = GetParam().Kind.starts_with("kill");
  const TCommand Command = GetParam().Unitctl ? Unitctl() : Host(1);
  int Failed = 0, FineInARow = 0;
  for (long Call = 1; Call < 200; ++Call) {
    SCOPED_TRACE(Call);
    Put(Version[0]);
    const TProcessResult Result = RunProcess(Command, {}, Fault(Folder(), Call, GetParam().Kind));
    const bool Killed = Result.Status == 128 + SIGKILL;
    EXPECT_TRUE(Result.Status == 0 || Result.Status == 1 || (Kills && Killed)) << Result.Status << Result.Err;
    EXPECT_TRUE(Killed ? IsOneOfBoth() : Content() == Version[Result.Status == 0]);
    if (Result.Status == 1) {
      const std::string& Said = GetParam().Unitctl ? Result.Err : Result.Out;
      EXPECT_NE(Said.find(Path() + ": Cannot be "), std::string::npos) << Said;
    }
    if (!Killed && !GetParam().Kind.starts_with("all-")) { // a disk that is gone takes no removal either
      EXPECT_EQ(Names(), TNames{"units.xml"});
    }
    Failed += Result.Status != 0;
    EXPECT_EQ(RunProcess(Command).Status, 0);
    EXPECT_TRUE(Content() == Version[1]);
    EXPECT_EQ(Names(), TNames{"units.xml"}) << "what a killed process left behind is gone";
    FineInARow = Result.Status == 0 ? FineInARow + 1 : 0;
    if (FineInARow == 12) { // more than there are calls in a row that do not matter
      EXPECT_GT(Failed, 8) << "the layer sees the calls";
      return;
    }
  }
  FAIL() << "there is no end";
}

INSTANTIATE_TEST_SUITE_P(Rows, FaultyProcess,
                         testing::Values(TFaultRow{"HostWithoutDisk", false, "error 5"},
                                         TFaultRow{"HostOnAFullDisk", false, "all-errors 28"},
                                         TFaultRow{"HostKilledBefore", false, "kill"},
                                         TFaultRow{"HostKilledAfter", false, "kill-after"},
                                         TFaultRow{"UnitctlWithoutDisk", true, "error 5"},
                                         TFaultRow{"UnitctlKilledBefore", true, "kill"},
                                         TFaultRow{"UnitctlKilledAfter", true, "kill-after"}),
                         [](const auto& Info) { return std::string(Info.param.Name); });

/// True in the nightly run.
bool FullSize() noexcept {
  return std::getenv("UNITLIB_FULL_SIZE") != nullptr;
}

/// A process that goes on until it is killed.
class TRunning {
public:
  explicit TRunning(const TCommand& Command) {
    std::vector<char*> Arguments;
    for (const std::string& Text : Command) Arguments.push_back(const_cast<char*>(Text.c_str()));
    Arguments.push_back(nullptr);
    int Ends[2];
    if (pipe(Ends) != 0) throw std::runtime_error("no pipe");
    FId = fork();
    if (FId == 0) {
      dup2(Ends[1], STDOUT_FILENO);
      close(Ends[0]);
      close(Ends[1]);
      execv(Arguments[0], Arguments.data());
      _exit(127);
    }
    close(Ends[1]);
    char Letter; // the host says that it has loaded
    FStarted = read(Ends[0], &Letter, 1) == 1;
    FOutput = Ends[0];
  }
  ~TRunning() {
    if (FId > 0) End(SIGKILL);
    close(FOutput);
  }
  TRunning(const TRunning&) = delete;
  TRunning& operator=(const TRunning&) = delete;

  bool Started() const noexcept { return FStarted; }
  /// Ends it by Signal, or (0) waits for its own end. The status as a shell tells it.
  int End(int Signal) {
    if (Signal) kill(FId, Signal);
    int Ended = 0;
    waitpid(FId, &Ended, 0);
    FId = -1;
    return WIFEXITED(Ended) ? WEXITSTATUS(Ended) : 128 + WTERMSIG(Ended);
  }

private:
  pid_t FId = -1;
  int FOutput = -1;
  bool FStarted = false;
};

TEST_F(SavingProcess, IsKilledAtRandomMoments) {
  constexpr unsigned Seed = 20240823;
  std::mt19937 Random(Seed);
  std::uniform_int_distribution<int> Microseconds(0, 8000);
  const int Kills = FullSize() ? 1000 : HasSanitizer() ? 40 : 500;
  int Leftovers = 0, Changed = 0;
  std::string Before = Content();
  for (int I = 0; I < Kills; ++I) {
    TRunning Process(Host(I % 2, "0"));
    ASSERT_TRUE(Process.Started()) << "kill " << I << ", seed " << Seed << ": what was left must load";
    std::this_thread::sleep_for(std::chrono::microseconds(Microseconds(Random)));
    ASSERT_EQ(Process.End(SIGKILL), 128 + SIGKILL);
    ASSERT_TRUE(IsOneOfBoth()) << "kill " << I << ", seed " << Seed;
    Leftovers += Names().size() > 1;
    ASSERT_LE(Names().size(), 2U) << "one at most: the next save takes it away";
    Changed += Content() != Before;
    Before = Content();
  }
  std::cout << "[ measured ] " << Kills << " kills, " << Leftovers << " temporary files left, " << Changed
            << " times another content\n";
  EXPECT_GT(Leftovers + Changed, 0) << "some were killed after or within a save";
  EXPECT_EQ(RunProcess(Host(0)).Status, 0);
  EXPECT_EQ(Names(), TNames{"units.xml"});
}

TEST_F(SavingProcess, SavesWhileOthersSaveToo) {
  const std::string Count = FullSize() ? "500" : HasSanitizer() ? "20" : "60";
  long Reads = 0;
  {
    TRunning First(Host(0, Count)), Second(Host(1, Count)), Third(Host(0, Count));
    const auto Readers = [&] {
      for (int I = 0; I < 300; ++I, ++Reads) ASSERT_TRUE(IsOneOfBoth()) << "read " << I;
    };
    Readers();
    EXPECT_EQ(First.End(0), 0);
    EXPECT_EQ(Second.End(0), 0);
    EXPECT_EQ(Third.End(0), 0);
  }
  EXPECT_EQ(Reads, 300);
  EXPECT_TRUE(IsOneOfBoth());
  EXPECT_EQ(Names(), TNames{"units.xml"});
}

// ---------------------------------------------------------------- rights

TEST_F(SavingProcess, MayNotWriteIntoTheFolder) {
  fs::permissions(Folder(), fs::perms::owner_all | fs::perms::group_exec | fs::perms::others_exec |
                                fs::perms::group_read | fs::perms::others_read);
  fs::permissions(fs::path(Path()), fs::perms::all);
  if (getuid() != 0) fs::permissions(Folder(), fs::perms::owner_read | fs::perms::owner_exec);
  const TProcessResult Result = RunProcess(HostAsNobody(Host(0)));
  fs::permissions(Folder(), fs::perms::all);
  EXPECT_EQ(Result.Status, 1);
  EXPECT_EQ(Result.Out, "loaded\n" + Path() + ": Cannot be written: Permission denied\n");
  EXPECT_TRUE(Content() == Version[1]);
  EXPECT_EQ(Names(), TNames{"units.xml"});
}

TEST_F(SavingProcess, MayNotWriteTheFile) {
  fs::permissions(fs::path(Path()), fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
  const TProcessResult Result = RunProcess(HostAsNobody(Host(0)));
  EXPECT_EQ(Result.Status, 1);
  EXPECT_EQ(Result.Out, "loaded\n" + Path() + ": Cannot be replaced: Permission denied\n");
  EXPECT_TRUE(Content() == Version[1]);
  EXPECT_EQ(Names(), TNames{"units.xml"});
}

} // namespace
} // namespace unitlib::test
