#include <unitlib/convert/ZELUnitConvertor.h>
#include <unitlib/expr/ZELUnitArthProcessor.h>
#include <unitlib/model/ZELUnitConfigFileGenerator.h>
#include <unitlib/model/ZELUnitMgr.h>
#include <unitlib/notify/ZELUnitRefreshUtils.h>
#include <unitlib/rtl/FileFolders.h>
#include <unitlib/rtl/Text.h>
#ifdef WITH_UI
#include <unitlib/ui/UnitDialogs.h>
#include <unitlib/ui/ZELUnitFrm.h>
#endif

#include <iostream>

/// Argument: a folder for the settings. Prints one conversion; exit status 0 when it is right.
int main(int Count, char** Arguments) {
  using namespace unitlib;
  if (Count < 2) return 2;
  SetExePath(FromUtf8(Arguments[1]));
  SetCommonDocumentsPath(FromUtf8(Arguments[1]));
  GenerateUnitDefaultConfigFile();
  InitialUnitSystem(u"", CYAmInch, false);
  const std::u16string Text = TMeasureDataManager::StoreToDisplay(0, 1689.1);
  std::cout << ToUtf8(Text) << "\n";
  const bool Right = Text == u"5' 6 1/2\"" && TMeasureDataManager::DisplayToStore(0, Text) == 1689.1 &&
                     GetElevStoreValue(u"10'") == u"3.048" && UnitRefreshManager() != nullptr;
#ifdef WITH_UI
  // Linked, not opened: there may be no display here.
  std::cout << (reinterpret_cast<void*>(&TSystemUnitForm::Execute) ? "dialogs linked\n" : "");
#endif
  FreeUnitSystem();
  return Right ? 0 : 1;
}
