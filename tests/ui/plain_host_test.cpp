/// A host without wxWidgets: the library starts the toolkit itself and keeps it.
#include "tests/support/Settings.h"
#include "unitlib/model/ZELUnitConfigFileGenerator.h"
#include "unitlib/ui/UnitDialogs.h"

#include <clocale>
#include <cstdlib>

namespace unitlib {
namespace {

/// Sends keys from outside this program, once the dialog is on screen.
void PressLater(const std::string& Keys) {
  const std::string Command =
      "(timeout 60 xdotool search --sync --onlyvisible --name '^Project Units$' >/dev/null;"
      " sleep 0.5; xdotool key --delay 100 " +
      Keys + ") &";
  ASSERT_EQ(std::system(Command.c_str()), 0);
}

struct THost {
  int Accepted = 0;
  std::string Calls;
  void OK() { ++Accepted; }
  bool Lock(std::u16string_view, bool Lock) {
    Calls += Lock ? "lock " : "unlock ";
    return true;
  }
};

TEST(PlainHost, OpensTheDialogAgainAndAgain) {
  test::TPrivateFolders Folders;
  const std::u16string File = Folders.File("project.xml");
  GenerateUnitDefaultConfigFile(File);
  const std::string Locale = std::setlocale(LC_NUMERIC, nullptr);
  THost Host;
  for (int I = 0; I < 3; ++I) {
    PressLater("Down Return"); // the next configuration, OK
    ExecuteSystemUnitForm(CYAmInch, File, MethodOf<&THost::OK>(&Host), MethodOf<&THost::Lock>(&Host));
    EXPECT_EQ(Host.Accepted, I + 1);
    EXPECT_EQ(TSystemUnitDataManager::GetCurConfigIndex(), I + 1);
  }
  EXPECT_EQ(Host.Calls, "unlock lock unlock lock unlock lock unlock lock unlock lock unlock lock ");
  EXPECT_EQ(std::setlocale(LC_NUMERIC, nullptr), Locale); // the host's number texts are its own
  FreeUnitSystem();
}

} // namespace
} // namespace unitlib
