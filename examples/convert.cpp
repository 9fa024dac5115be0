#include <iostream>
#include <unitlib/convert/ZELUnitConvertor.h>
#include <unitlib/model/ZELUnitConfigFileGenerator.h>
#include <unitlib/model/ZELUnitMgr.h>
#include <unitlib/rtl/Text.h>
using namespace unitlib;
int main() {
  GenerateUnitDefaultConfigFile(u"units.xml"); // the factory settings, once
  TSystemUnitDataManager::InitUnitSystemSetting(u"units.xml");
  TSystemUnitDataManager::SetCurConfig(CYAmInch);                               // "US Imperial System"
  std::cout << ToUtf8(TMeasureDataManager::StoreToDisplay(0, 1689.1)) << "\n";  // 5' 6 1/2"
  std::cout << TMeasureDataManager::DisplayToStore(0, u"5'6 1/2\"") << " mm\n"; // 1689.1 mm
}
