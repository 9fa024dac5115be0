#include "unitlib/model/ZELUnitMgr.h"

#include "unitlib/model/SelectByDescription.h"
#include "unitlib/rtl/FileFolders.h"
#include "unitlib/rtl/Text.h"

#include <algorithm>

namespace unitlib {

using TManager = TSystemUnitDataManager;

std::unique_ptr<TManager::TConfigList> TManager::FUnitConfigContainer;
std::unique_ptr<TManager::TDigitGroupList> TManager::FDigitGroupContainer;
std::unique_ptr<TManager::TConfigList> TManager::FUnitConfigContainerForReport;
std::unique_ptr<TManager::TDigitGroupList> TManager::FDigitGroupContainerForReport;
int TManager::FCurConfigIndex = 0;
int TManager::FCurDigitGroupIndex = 0;
std::u16string TManager::FUnitConfigFile;
TManager::TConfigList* TManager::FCurUseUnitConfigContainer = nullptr;
TManager::TDigitGroupList* TManager::FCurUseDigitGroupContainer = nullptr;

namespace {

/// Apart, so that what asks for the settings at every conversion stays a few instructions.
[[noreturn, gnu::noinline]] void RaiseNotLoaded() {
  throw EListError(u"No unit settings are loaded: call InitialUnitSystem first", u"");
}

template <class T> T& Loaded(T* List) {
  if (!List) RaiseNotLoaded();
  return *List;
}

inline TConfig& CurrentConfig() {
  return Loaded(TManager::FCurUseUnitConfigContainer).Item(TManager::FCurConfigIndex);
}

/// The selection keeps the low byte of an index only, as the configuration type is one byte.
TConfigueType LowByte(int Index) {
  return static_cast<TConfigueType>(static_cast<unsigned>(Index) & 0xFFU);
}

/// Replaces one set by an empty one and makes it current.
void StartSet(std::unique_ptr<TManager::TConfigList>& Configs,
              std::unique_ptr<TManager::TDigitGroupList>& Groups) {
  auto NewConfigs = std::make_unique<TManager::TConfigList>();
  auto NewGroups = std::make_unique<TManager::TDigitGroupList>();
  Groups = std::move(NewGroups);
  Configs = std::move(NewConfigs);
  TManager::FCurUseUnitConfigContainer = Configs.get();
  TManager::FCurUseDigitGroupContainer = Groups.get();
}

} // namespace

void TManager::InitUnitSystemSetting(std::u16string_view FileName) {
  const std::u16string Name(FileName); // may be a view of FUnitConfigFile
  StartSet(FUnitConfigContainer, FDigitGroupContainer);
  ParseUnitConfigXMLFile(Name);
}

void TManager::InitSystemUnit(std::u16string_view FileName) {
  const std::u16string Name(FileName);
  StartSet(FUnitConfigContainerForReport, FDigitGroupContainerForReport);
  ParseUnitConfigXMLFile(Name);
}

void TManager::FreeUnitSystemSetting() noexcept {
  FCurUseUnitConfigContainer = nullptr;
  FCurUseDigitGroupContainer = nullptr;
  FDigitGroupContainer.reset();
  FUnitConfigContainer.reset();
  FDigitGroupContainerForReport.reset();
  FUnitConfigContainerForReport.reset();
}

void TManager::SavetoModel(TConfigueType) {
  const std::u16string Path = GetTempPathForUnit();
  ForceDirectories(Path);
  SaveConfigFile(Path + u"SysUnit.xml");
}

void TManager::SetCurretnConfigueType(TConfigueType ConfigueType, bool Save) {
  if (FCurConfigIndex == -1) {
    ConfigueUnitSystem(ConfigueType);
    SavetoModel(ConfigueType);
    return;
  }
  ConfigueUnitSystem(LowByte(FCurConfigIndex));
  if (Save) SavetoModel(ConfigueType);
}

void TManager::ConfigueUnitSystem(TConfigueType ConfigueType) noexcept {
  FCurConfigIndex = ConfigueType;
}
void TManager::SetCurConfig(int Index) noexcept {
  FCurConfigIndex = Index;
}
int TManager::GetCurConfigIndex() noexcept {
  return FCurConfigIndex;
}
int TManager::GetCurDigitGroupIndex() noexcept {
  return FCurDigitGroupIndex;
}

TConfig* TManager::CurConfig() {
  return &CurrentConfig();
}

TMeasure* TManager::CurConfigMeasure(int ClassifyCode) {
  return CurrentConfig().FindMeasure(ClassifyCode);
}

TUnit* TManager::CurConfigUnit(int ClassifyCode) {
  const TMeasure* Measure = CurrentConfig().FindMeasure(ClassifyCode);
  return Measure ? Measure->GetCurUnit() : nullptr;
}

TManager::TConfigList& TManager::CurUseUnitConfigContainer() {
  return Loaded(FCurUseUnitConfigContainer);
}
TDigitGroup* TManager::CurDigitGroup() {
  return DigitGroup(FCurDigitGroupIndex);
}
TDigitGroup* TManager::DigitGroup(int Index) {
  return &Loaded(FCurUseDigitGroupContainer).Item(Index);
}
int TManager::DigitGroupCount() {
  return Loaded(FCurUseDigitGroupContainer).Count();
}

void TManager::SetCurDigitGroup(std::u16string_view Description) {
  SelectByDescription(Loaded(FCurUseDigitGroupContainer), Description, FCurDigitGroupIndex);
}

void TManager::SetCurDigitGroupIndex(int Index) noexcept {
  FCurDigitGroupIndex = Index;
}

void TManager::RestoreDefaultUnitSystem(int Index) {
  CurConfig()->RestoreDefault();
  ConfigueUnitSystem(LowByte(Index));
}

std::u16string TManager::GetUnitConfigFileName() {
  return FUnitConfigFile;
}

void InitialUnitSystem(std::u16string_view FileName, TConfigueType ConfigueType, bool Save) {
  TManager::InitUnitSystemSetting(FileName);
  TManager::SetCurretnConfigueType(ConfigueType, Save);
}

void FreeUnitSystem() noexcept {
  TManager::FreeUnitSystemSetting();
}

std::u16string GetTempPathForUnit() {
  const std::u16string Delim(1, PathDelim());
  const std::u16string Path =
      IncludeTrailingPathDelimiter(GetCommonDocumentsPath()) + u"Quillmere" + Delim + u"ZEL" + Delim + u"9.0";
  // The two spellings differ on purpose: only a documents folder that itself holds "QuillMere" is changed.
  return IncludeTrailingPathDelimiter(ReplaceStr(Path, u"QuillMere", u"Tarnwick"));
}

std::u16string GetDisplayValue(std::u16string_view Text) {
  std::u16string Result(Text);
  std::erase_if(Result, [](char16_t C) { return C == u'[' || C == u']'; });
  return Result;
}

std::u16string GetDefUnitCharacter(TUnit* Unit) {
  if (!Unit) throw EListError(u"No unit to take the symbol of", u"");
  if (!SameText(Unit->GetCurUnitSymbolDescription(), _SUnitNone)) return {};
  if (SameText(Unit->Description, _SFENSHIYCUN) || SameText(Unit->Description, _SYCHEFENSHIYCUN)) return {};
  if (Unit->DefUnitSymbolWhenNone.empty()) return {};
  return u" [" + Unit->DefUnitSymbolWhenNone + u"]";
}

void SetCheckBoxSetting(TCheckBoxSetting*& Setting, bool Enable, bool Checked) {
  if (!Setting) throw EListError(u"No format switch to set", u"");
  Setting->Enable = Enable;
  Setting->Checked = Checked;
}

} // namespace unitlib
