/// A host without any window system: a clear error, nothing else.
#include "tests/support/Settings.h"
#include "unitlib/model/ZELUnitConfigFileGenerator.h"
#include "unitlib/rtl/Errors.h"
#include "unitlib/ui/UnitDialogs.h"

#include <cstdlib>

namespace unitlib {
namespace {

TEST(NoDisplay, DialogRaisesAndTheLibraryWorksOn) {
  unsetenv("DISPLAY");
  unsetenv("WAYLAND_DISPLAY");
  test::TPrivateFolders Folders;
  const std::u16string File = Folders.File("project.xml");
  GenerateUnitDefaultConfigFile(File);
  for (int I = 0; I < 2; ++I) EXPECT_THROW(ExecuteSystemUnitForm(CYAmInch, File), EUnitError);
  EXPECT_NO_THROW(InitialUnitSystem(File, CYAmInch, false));
  FreeUnitSystem();
}

} // namespace
} // namespace unitlib
