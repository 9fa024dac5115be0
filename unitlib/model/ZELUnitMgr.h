/// The system unit data manager: the loaded settings of the process, and the library-level functions on them.
/// Threads: conversions may run at the same time on several threads as long as nobody loads or changes
/// settings.
#pragma once

#include "unitlib/model/UnitModel.h"
#include "unitlib/model/ZELUnitConst.h"

#include <memory>
#include <string>
#include <string_view>

namespace unitlib {

/// Owner of the loaded settings. It has no instances: all state is one per process.
/// Two sets of settings can be loaded, the project set and the report set; the one loaded last is current,
/// and every accessor works on it. Before the first load and after FreeUnitSystem the accessors raise
/// EListError.
class TSystemUnitDataManager {
public:
  using TConfigList = TOwningList<TConfig>;
  using TDigitGroupList = TOwningList<TDigitGroup>;

  TSystemUnitDataManager() = delete;

  // State, open to the host for reading.
  static std::unique_ptr<TConfigList> FUnitConfigContainer;              // project set
  static std::unique_ptr<TDigitGroupList> FDigitGroupContainer;          // project set
  static std::unique_ptr<TConfigList> FUnitConfigContainerForReport;     // report set
  static std::unique_ptr<TDigitGroupList> FDigitGroupContainerForReport; // report set
  static int FCurConfigIndex;                                            // -1: no configuration chosen yet
  static int FCurDigitGroupIndex;
  static std::u16string FUnitConfigFile; // path of the file loaded last
  static TConfigList* FCurUseUnitConfigContainer;
  static TDigitGroupList* FCurUseDigitGroupContainer;

  /// Replaces the project set (InitUnitSystemSetting) or the report set (InitSystemUnit) by a file's content
  /// and makes it current. After a failure the set holds what was read before it, and SaveConfigFile refuses
  /// until a load succeeds.
  /// errors      EFileError, EXmlError (see ParseUnitConfigXMLFile)
  static void InitUnitSystemSetting(std::u16string_view FileName);
  static void InitSystemUnit(std::u16string_view FileName);
  /// Frees both sets.
  static void FreeUnitSystemSetting() noexcept;

  /// Reads a settings file into the current set, which should be empty. An empty FileName means
  /// "UnitConfig.xml" in the folder of the host's executable.
  /// errors      EFileError the file cannot be read;
  /// EXmlError it is not XML, an element or attribute is missing or of
  ///             the wrong form (with path, line, element, attribute); EListError no set is current
  static void ParseUnitConfigXMLFile(std::u16string_view FileName);
  /// Writes the current set. An empty FileName means the file loaded last. The file is replaced as a whole or
  /// not at all.
  /// errors      EFileError the file cannot be written, or the last load failed; EXmlError a text
  /// cannot be written as
  ///             XML; EListError no set is current
  static void SaveConfigFile(std::u16string_view FileName);
  /// What SaveConfigFile would write: UTF-8. errors      as SaveConfigFile, where they are about the settings
  static std::string SaveConfigToMemory();
  /// Writes the working copy "SysUnit.xml" in GetTempPathForUnit(), which is created when missing.
  /// ConfigueType is not used: the current set is written whatever it says.
  /// errors      as SaveConfigFile
  static void SavetoModel(TConfigueType ConfigueType);

  /// Chooses the configuration after a load: ConfigueType where the file has no choice (the working copy is
  /// then written whatever Save says), otherwise the file's own (the working copy is written when Save is
  /// set).
  static void SetCurretnConfigueType(TConfigueType ConfigueType, bool Save); // sic
  static void ConfigueUnitSystem(TConfigueType ConfigueType) noexcept;       // sic
  static void SetCurConfig(int Index) noexcept;
  static int GetCurConfigIndex() noexcept;
  static int GetCurDigitGroupIndex() noexcept;

  /// errors      EListError nothing is loaded, or the current index is outside the list (-1 included)
  static TConfig* CurConfig();
  /// The first measure of the current configuration with this classify code; null when there is none.
  /// errors      EListError as CurConfig
  static TMeasure* CurConfigMeasure(int ClassifyCode);
  /// The current unit of that measure; null when there is no such measure.
  /// errors      EListError as CurConfig, or the measure has no current unit
  static TUnit* CurConfigUnit(int ClassifyCode);
  /// errors      EListError nothing is loaded
  static TConfigList& CurUseUnitConfigContainer();
  static TDigitGroup* CurDigitGroup();
  static TDigitGroup* DigitGroup(int Index);
  static int DigitGroupCount();
  /// Makes the first digit group with exactly this description current; an unknown one changes nothing.
  static void SetCurDigitGroup(std::u16string_view Description);
  static void SetCurDigitGroupIndex(int Index) noexcept;

  /// Restores the defaults of the configuration that is current, then makes configuration Index (its low
  /// byte) current.
  /// errors      EListError no configuration is current
  static void RestoreDefaultUnitSystem(int Index);
  /// Recomputes every measure's ExampleDisplayValue from its ExampleValue, a number in the base unit of the
  /// measure with its classify code. A measure that fails gets an empty text, the others are computed all the
  /// same.
  /// errors      the first error met: EListError, EConvertError (an example or increment is no number),
  /// ERangeError
  static void UpdateDispalyValue(); // sic
  static std::u16string GetUnitConfigFileName();
};

/// Loads the project set from FileName (empty: "UnitConfig.xml" beside the host's executable) and chooses the
/// configuration: the file's own choice, or ConfigueType where it has none (-1). Save: also write the working
/// copy.
///   InitialUnitSystem(u"", CYAmInch, false);
/// errors      EFileError, EXmlError, as TSystemUnitDataManager::InitUnitSystemSetting and SavetoModel
void InitialUnitSystem(std::u16string_view FileName, TConfigueType ConfigueType, bool Save);
/// Frees the loaded settings.
void FreeUnitSystem() noexcept;
/// Folder of the working copy, with trailing path delimiter. It need not exist.
/// errors      EFileError the system does not tell its documents folder
std::u16string GetTempPathForUnit();
/// Text without "[" and "]".
std::u16string GetDisplayValue(std::u16string_view Text);
/// Suffix " [SF]" for a unit whose current symbol is "None" (any letter case), made of its
/// DefUnitSymbolWhenNone; empty for another symbol, an empty DefUnitSymbolWhenNone and the two fractional
/// inch units, which carry their own marks.
/// errors      EListError Unit is null
std::u16string GetDefUnitCharacter(TUnit* Unit);
/// Sets Enable and Checked of a format switch; its defaults stay.
/// errors      EListError Setting is null
void SetCheckBoxSetting(TCheckBoxSetting*& Setting, bool Enable, bool Checked);

} // namespace unitlib
