/// The unit settings that the program works with: loaded into the library while this lives, and locked.
#pragma once

#include "apps/takeoff/SettingsLock.h"
#include "unitlib/ui/UnitDialogs.h"

#include <string>
#include <string_view>

namespace unitlib::takeoff {

/// The library holds one set of settings per process, so there is one of these at a time.
class TUnitSettings {
public:
  enum class TIfMissing : std::uint8_t { Create, Refuse };

  /// Loads a settings file; one that is missing is made with the factory settings when IfMissing says so. A
  /// file that has chosen no unit system yet starts with the metric one. errors      EFileError, EXmlError
  TUnitSettings(std::u16string Path, TIfMissing IfMissing);
  ~TUnitSettings();
  TUnitSettings(const TUnitSettings&) = delete;
  TUnitSettings& operator=(const TUnitSettings&) = delete;

  const std::u16string& Path() const noexcept { return FPath; }
  /// Opens the Project Units dialog. OnOK runs after the settings have been saved.
  /// errors      ERefused another program uses the settings; those of the dialog
  void Edit(const TUnitOKFunc& OnOK);

private:
  void Load();
  bool LockFile(std::u16string_view FileName, bool Lock);

  std::u16string FPath;
  TSettingsLock FLock;
};

} // namespace unitlib::takeoff
