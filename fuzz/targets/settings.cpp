/// Input: a settings file; or the letter M and bytes that settings are made of (see SettingsMaker.cpp).
#include "fuzz/Check.h"
#include "fuzz/ModelText.h"
#include "fuzz/SettingsMaker.h"
#include "fuzz/Targets.h"
#include "fuzz/WorkFolder.h"
#include "unitlib/convert/ZELUnitConvertor.h"
#include "unitlib/model/ZELUnitMgr.h"
#include "unitlib/rtl/Errors.h"

#include <algorithm>

namespace unitlib::fuzz {
namespace {

using TManager = TSystemUnitDataManager;

/// Made once of this: the library must work on after a file that it has refused.
const std::string& GoodFile() {
  static const std::string Path = [] {
    constexpr std::string_view Switch = "DefEnable=\"0\" Enable=\"0\" DefChecked=\"0\" Checked=\"0\"/>";
    std::string Xml =
        "<Unit><TemplateConfig CurConfigIndex=\"0\"><Config Description=\"C\" OrderIndex=\"0\">"
        "<Measurement Description=\"M\" OrderIndex=\"0\" DefUnitIndex=\"0\" CurUnitIndex=\"0\" "
        "ExampleValue=\"1\" ClassifyCode=\"0\"><Unit UnitIdentifyCode=\"14\" Description=\"Meters\" "
        "OrderIndex=\"0\" DefRoundIndex=\"0\" CurRoundIndex=\"0\" DefUnitSymbolIndex=\"0\" "
        "CurUnitSymbolIndex=\"0\" DefUnitSymbolWhenNone=\"m\" UnitParserClassName=\"TMetreParser\">"
        "<Rounds><Round Description=\"R\" Increment=\"0.01\" IncrementCanEdit=\"0\" "
        "IncrementCanVisible=\"0\" OrderIndex=\"0\"/></Rounds><UnitSymbols/><Format>";
    for (const std::string_view Name : {"UseProjectSetting", "SuppressTrail0", "Suppress0Feet",
                                        "ShowPlusSymbolForPosValue", "UseDigitGroup", "SuppressSpace"})
      Xml.append("<").append(Name).append(" ").append(Switch);
    Xml += "</Format></Unit></Measurement></Config></TemplateConfig><DigitGroup "
           "CurDigitGroupIndex=\"0\"/></Unit>";
    WriteFile(WorkPath("good.xml"), Xml);
    return WorkPath("good.xml");
  }();
  return Path;
}

void RequireWorksOn(std::string_view File) {
  const std::string& Good = GoodFile();
  TManager::InitUnitSystemSetting(std::u16string(Good.begin(), Good.end()));
  RequireSame("1234.5 mm after the file", File, TMeasureDataManager::StoreToDisplay(0, 1234.5),
              std::u16string(u"1.23"));
}

/// Every conversion gives a result or an error of the family, whatever the settings say.
void UseSettings() {
  const auto Try = [](auto Call) {
    try {
      Call();
    } catch (const EUnitError&) {
    }
  };
  Try([] { TManager::UpdateDispalyValue(); });
  for (int Code = -1; Code < 9; ++Code) {
    Try([&] { TMeasureDataManager::StoreToDisplay(Code, 1234.5, -1, true); });
    Try([&] { TMeasureDataManager::DisplayToStore(Code, u"5'6\""); });
    Try([&] { TMeasureDataManager::CheckDisplay(Code, u"12 m"); });
  }
}

void CheckAccepted(std::string_view File) {
  const std::string Loaded = ModelText(true);
  const std::u16string Second = WideWorkPath("second.xml"), Third = WideWorkPath("third.xml");
  try {
    TManager::SaveConfigFile(Second);
  } catch (const EUnitError& Error) {
    Fail("what was read cannot be saved, " + Show(Error.Message()) + ", of " + Show(File));
  }
  TManager::InitUnitSystemSetting(Second);
  RequireSame("saved and loaded", File, ModelText(false), Loaded);
  TManager::SaveConfigFile(Third);
  RequireSame("saved a second time", File, ReadFile(WorkPath("third.xml")), ReadFile(WorkPath("second.xml")));
  UseSettings();
}

/// The settings of a file, or what is wrong with it.
std::string LoadOutcome(std::string_view File) {
  WriteFile(WorkPath("either.xml"), File);
  try {
    TManager::InitUnitSystemSetting(WideWorkPath("either.xml"));
    return ModelText(false);
  } catch (const EXmlError& Error) {
    return Show(Error.Message()) + Show(Error.Element()) + Show(Error.Attribute());
  }
}

/// What the library writes itself it reads a shorter way, and a comment is no such thing.
void RequireBothReadersAgree(std::string_view File) {
  const std::size_t End = File.find("?>");
  if (End == std::string_view::npos) return;
  std::string Commented(File);
  Commented.insert(End + 2, "<!-- -->");
  RequireSame("read with a comment", File, LoadOutcome(Commented), LoadOutcome(File));
}

void CheckRefused(std::string_view File, const EUnitError& Error) {
  Require(!Error.Message().empty(), "a message for the refusal", File);
  if (const auto* Xml = dynamic_cast<const EXmlError*>(&Error)) {
    RequireSame("the path of the error", File, Xml->Path(), WideWorkPath("first.xml"));
    // Texts in UTF-16 have a NUL before or behind each line feed and count alike.
    const auto Lines = std::count(File.begin(), File.end(), '\n') + 1;
    Require(Xml->Line() >= 0 && Xml->Line() <= Lines, "the line " + std::to_string(Xml->Line()), File);
  }
  try {
    TManager::SaveConfigFile(u"");
    Fail("half-read settings were saved over " + Show(File));
  } catch (const EFileError&) {
  }
  RequireSame("the file after its refusal", File, ReadFile(WorkPath("first.xml")), std::string(File));
  UseSettings();
}

} // namespace

void RunSettings(TInput& Input) {
  std::string_view File = Input.Rest();
  TMadeSettings Made;
  if (File.starts_with('M')) {
    TInput Bytes(reinterpret_cast<const std::uint8_t*>(File.data()) + 1, File.size() - 1);
    Made = MakeSettings(Bytes);
    File = Made.Xml;
  }
  WriteFile(WorkPath("first.xml"), File);
  bool Accepted = false;
  try {
    TManager::InitUnitSystemSetting(WideWorkPath("first.xml"));
    Accepted = true;
  } catch (const EXmlError& Error) {
    CheckRefused(File, Error);
  }
  if (!Made.Xml.empty()) {
    Require(Accepted, "settings that are well-formed", File);
    RequireSame("the settings read", File, ModelText(false), Made.Model);
  }
  if (Accepted) CheckAccepted(File);
  RequireBothReadersAgree(File);
  RequireWorksOn(File);
  FreeUnitSystem();
}

} // namespace unitlib::fuzz
