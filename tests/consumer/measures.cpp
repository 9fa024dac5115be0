/// A shared library of a host, with unitlib linked into it.
#include <unitlib/convert/ZELUnitConvertor.h>
#include <unitlib/model/ZELUnitConfigFileGenerator.h>
#include <unitlib/model/ZELUnitMgr.h>
#include <unitlib/rtl/Text.h>

#include <exception>
#include <string>

/// Stored value of a length typed in the US system, -1 for any error. Folder: for the settings file.
extern "C" __attribute__((visibility("default"))) double measures_read_length(const char* Folder,
                                                                              const char* Text) {
  using namespace unitlib;
  try {
    const std::u16string File = FromUtf8(Folder) + u"/units.xml";
    GenerateUnitDefaultConfigFile(File);
    TSystemUnitDataManager::InitUnitSystemSetting(File);
    TSystemUnitDataManager::SetCurConfig(CYAmInch);
    return TMeasureDataManager::DisplayToStore(0, FromUtf8(Text));
  } catch (const std::exception&) {
    return -1;
  }
}
