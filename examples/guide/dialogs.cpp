/// What docs/host-guide.md shows of the dialogs. Opens the Project Units dialog on "project-units.xml" in the current
/// folder.
// part dialogs
#include <iostream>
#include <unitlib/model/ZELUnitConfigFileGenerator.h>
#include <unitlib/notify/ZELUnitRefreshUtils.h>
#include <unitlib/rtl/Errors.h>
#include <unitlib/rtl/FileFolders.h>
#include <unitlib/ui/UnitDialogs.h>
using namespace unitlib;

class TProject {
public:
  void EditUnits() {
    ExecuteSystemUnitForm(CYAmInch, u"project-units.xml", MethodOf<&TProject::Changed>(this),
                          MethodOf<&TProject::Lock>(this));
  }

private:
  void Changed() { UnitRefreshManager()->RefreshUnit(); } // after OK: tell every view
  bool Lock(std::u16string_view, bool Locked) { // Locked false: the library is about to use the file
    std::cout << (Locked ? "file locked\n" : "file free\n");
    return true;
  }
};
// end part

int main() {
  try {
    SetCommonDocumentsPath(u".");
    GenerateUnitDefaultConfigFile(u"project-units.xml");
    TProject().EditUnits();
    return 0;
  } catch (const EUnitError& Problem) { // no window system, for one
    std::cout << Problem.what() << "\n";
    return 3;
  }
}
