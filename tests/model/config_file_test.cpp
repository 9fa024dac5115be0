/// Reading and writing the settings file.
#include "tests/model/SmallSettings.h"
#include "tests/support/Settings.h"
#include "unitlib/model/ZELUnitConfigFileGenerator.h"
#include "unitlib/rtl/Errors.h"
#include "unitlib/rtl/Files.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

namespace unitlib {
namespace {

using TManager = TSystemUnitDataManager;
using test::SmallSettings;
using test::TPrivateFolders;

std::string Replaced(std::string_view Whole, std::string_view Old, std::string_view New) {
  std::string Text(Whole);
  const size_t Pos = Text.find(Old);
  EXPECT_NE(Pos, std::string::npos) << Old;
  return Pos == std::string::npos ? Text : Text.replace(Pos, Old.size(), New);
}

class ConfigFile : public testing::Test {
protected:
  ~ConfigFile() override { FreeUnitSystem(); }
  void Load(std::string_view Content) {
    test::WriteBytes(Path, Content);
    TManager::InitUnitSystemSetting(Path);
  }
  std::string Saved() {
    const std::u16string Out = Folders.File("out.xml");
    TManager::SaveConfigFile(Out);
    return test::ReadBytes(Out);
  }
  TPrivateFolders Folders;
  std::u16string Path = Folders.File("small.xml");
};

TEST_F(ConfigFile, FillsEveryField) {
  Load(SmallSettings);
  const TConfig& Config = *TManager::CurConfig();
  EXPECT_EQ(Config.Description, u"C");
  EXPECT_EQ(Config.OrderIndex, 5);
  const TMeasure& Measure = Config.MeasureContainer[0];
  EXPECT_EQ(Measure.ExampleValue, u"1.5");
  EXPECT_EQ(Measure.ExampleDisplayValue, u"");
  EXPECT_EQ(Measure.ClassifyCode, 6);
  EXPECT_EQ(Measure.OrderIndex, 3);
  const TUnit& Unit = Measure.UnitContainer[0];
  EXPECT_EQ(Unit.UnitIdentifyCode, 500);
  EXPECT_EQ(Unit.OrderIndex, 4);
  EXPECT_EQ(Unit.DefUnitSymbolWhenNone, u"kg");
  EXPECT_EQ(Unit.UnitParserClassName, u"TKilogramsParser");
  const TRound& Round = Unit.RoundContainer[0];
  EXPECT_EQ(Round.Increment, u"0.5");
  EXPECT_TRUE(Round.IncrementCanEdit);
  EXPECT_FALSE(Round.IncrementCanVisible);
  EXPECT_EQ(Round.OrderIndex, 7);
  EXPECT_EQ(Unit.UnitSymbolContainer[0].OrderIndex, 8);
  EXPECT_TRUE(Unit.SuppressTrail0.DefEnable && Unit.SuppressTrail0.DefChecked);
  EXPECT_FALSE(Unit.SuppressTrail0.Enable || Unit.SuppressTrail0.Checked);
  EXPECT_TRUE(Unit.Suppress0Feet.Enable && Unit.Suppress0Feet.Checked);
  EXPECT_TRUE(Unit.ShowPlusForPosValue.Checked);
  EXPECT_EQ(TManager::DigitGroup(0)->OrderIndex, 9);
  EXPECT_EQ(TManager::DigitGroup(0)->DigitGroupParserClassName, u"TDigitGroup3CommaParser");
  EXPECT_EQ(TManager::GetUnitConfigFileName(), Path);
}

TEST_F(ConfigFile, SavesWhatItReadButRenumbersPositions) {
  Load(Replaced(SmallSettings, "IncrementCanVisible=\"false\"", "IncrementCanVisible=\"1\""));
  std::string Expected = Replaced(SmallSettings, "OrderIndex=\"5\"", "OrderIndex=\"0\"");
  Expected = Replaced(Expected, "OrderIndex=\"3\"", "OrderIndex=\"0\"");
  Expected = Replaced(Expected, "OrderIndex=\"9\"", "OrderIndex=\"0\"");
  Expected = Replaced(Expected, "IncrementCanVisible=\"false\"", "IncrementCanVisible=\"true\"");
  EXPECT_EQ(Saved(), Expected);
}

TEST_F(ConfigFile, WritesConfigurationsAndMeasuresByPosition) {
  Load(SmallSettings);
  TManager::CurUseUnitConfigContainer().Add().OrderIndex = 9;
  for (int Order : {3, 1, 2})
    TManager::CurUseUnitConfigContainer()[1].MeasureContainer.Add().OrderIndex = Order;
  Load(Saved());
  EXPECT_EQ(TManager::CurUseUnitConfigContainer()[1].OrderIndex, 1);
  for (int I = 0; I < 3; ++I)
    EXPECT_EQ(TManager::CurUseUnitConfigContainer()[1].MeasureContainer[I].OrderIndex, I);
}

TEST_F(ConfigFile, LineEndsAndMarksInTextsSurvive) {
  Load(SmallSettings);
  TManager::CurConfig()->Description = u"a\nb\tc\r<&>\"'\u4E2D";
  TManager::CurConfig()->MeasureContainer[0].UnitContainer[0].RoundContainer[0].Increment = u"";
  Load(Saved());
  EXPECT_EQ(TManager::CurConfig()->Description, u"a\nb\tc\r<&>\"'\u4E2D");
  EXPECT_EQ(TManager::CurConfig()->MeasureContainer[0].UnitContainer[0].RoundContainer[0].Increment, u"");
}

TEST_F(ConfigFile, ElementsCountByPositionNotByName) {
  std::string Content = Replaced(SmallSettings, "<Config ", "<Anything ");
  Content = Replaced(Content, "</Config>", "</Anything>");
  Load(Replaced(Content, "<Round ", "<!-- comment --><Round "));
  EXPECT_EQ(TManager::CurUseUnitConfigContainer().Count(), 1);
  EXPECT_EQ(TManager::CurConfig()->MeasureContainer[0].UnitContainer[0].RoundContainer.Count(), 1);
}

TEST_F(ConfigFile, TheFirstTemplateCounts) {
  Load(Replaced(SmallSettings, "  <DigitGroup", "<TemplateConfig CurConfigIndex=\"7\"/><DigitGroup"));
  EXPECT_EQ(TManager::GetCurConfigIndex(), 0);
}

TEST_F(ConfigFile, ATemplateWithoutChildrenIsAnEmptyList) {
  Load("<Unit><TemplateConfig CurConfigIndex='3'/><DigitGroup CurDigitGroupIndex='2'/></Unit>");
  EXPECT_EQ(TManager::CurUseUnitConfigContainer().Count(), 0);
  EXPECT_EQ(TManager::GetCurConfigIndex(), 3);
  EXPECT_EQ(TManager::DigitGroupCount(), 0);
  EXPECT_EQ(TManager::GetCurDigitGroupIndex(), 2);
  EXPECT_THROW(TManager::CurConfig(), EListError);
  EXPECT_THROW(TManager::CurDigitGroup(), EListError);
}

TEST_F(ConfigFile, AnEmptyNameMeansTheFileBesideTheProgram) {
  test::WriteBytes(Folders.File("UnitConfig.xml"), SmallSettings);
  TManager::InitUnitSystemSetting(u"");
  EXPECT_EQ(TManager::GetUnitConfigFileName(), Folders.File("UnitConfig.xml"));
  TManager::SetCurConfig(1);
  TManager::SaveConfigFile(u"");
  EXPECT_NE(test::ReadBytes(Folders.File("UnitConfig.xml")).find("CurConfigIndex=\"1\""), std::string::npos);
  TManager::SaveConfigFile(Folders.File("other.xml"));
  EXPECT_EQ(TManager::GetUnitConfigFileName(), Folders.File("UnitConfig.xml"))
      << "a save changes no file name";
}

// ---------------------------------------------------------------- failures

struct TBadRow {
  const char* Name;
  const char* Old;
  const char* New;
  std::u16string_view Element;
  std::u16string_view Attribute;
  int Line;
};

class BadConfigFile : public ConfigFile, public testing::WithParamInterface<TBadRow> {};

TEST_P(BadConfigFile, RaisesAnErrorWithThePlace) {
  const TBadRow& Row = GetParam();
  try {
    Load(Replaced(SmallSettings, Row.Old, Row.New));
    FAIL() << "no error";
  } catch (const EXmlError& Error) {
    EXPECT_EQ(Error.Path(), Path);
    EXPECT_EQ(Error.Element(), Row.Element);
    EXPECT_EQ(Error.Attribute(), Row.Attribute);
    EXPECT_EQ(Error.Line(), Row.Line);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Rows, BadConfigFile,
    testing::Values(
        TBadRow{"NoRounds", "<Rounds>", "<Round_>", u"", u"", 9}, // the closing tag no longer fits
        TBadRow{"RoundsRenamed",
                "<Rounds>\n            <Round Description=\"To 6&quot;\" Increment=\"0.5\" "
                "IncrementCanEdit=\"true\" "
                "IncrementCanVisible=\"false\" OrderIndex=\"7\" />\n          </Rounds>",
                "", u"Unit", u"", 6},
        TBadRow{
            "NoSwitch",
            "<UseDigitGroup DefEnable=\"false\" Enable=\"false\" DefChecked=\"false\" Checked=\"false\" />",
            "", u"Format", u"", 13},
        TBadRow{"NoAttribute", " ClassifyCode=\"6\"", "", u"Measurement", u"ClassifyCode", 5},
        TBadRow{"EmptyInteger", "ClassifyCode=\"6\"", "ClassifyCode=\"\"", u"Measurement", u"ClassifyCode",
                5},
        TBadRow{"TooLargeInteger", "OrderIndex=\"4\"", "OrderIndex=\"2147483648\"", u"Unit", u"OrderIndex",
                6},
        TBadRow{"DecimalInteger", "OrderIndex=\"7\"", "OrderIndex=\"7.0\"", u"Round", u"OrderIndex", 8},
        TBadRow{"BadBoolean", "Enable=\"true\"", "Enable=\"maybe\"", u"SuppressTrail0", u"DefEnable", 15},
        TBadRow{"WrongLetterCase", "Description=\"C\"", "description=\"C\"", u"Config", u"Description", 4},
        TBadRow{"NoGroups", "<DigitGroup CurDigitGroupIndex=\"0\">", "<Groups CurDigitGroupIndex=\"0\">", u"",
                u"", 27},
        TBadRow{"NoGroupIndex", " CurDigitGroupIndex=\"0\"", "", u"DigitGroup", u"CurDigitGroupIndex", 25}),
    [](const auto& Info) { return Info.param.Name; });

TEST_F(ConfigFile, AFailedLoadIsNeverSaved) {
  Load(SmallSettings);
  const std::u16string Good = Path;
  Path = Folders.File("bad.xml");
  const std::string Bad = Replaced(SmallSettings, " CurDigitGroupIndex=\"0\"", "");
  EXPECT_THROW(Load(Bad), EXmlError);
  EXPECT_EQ(TManager::CurUseUnitConfigContainer().Count(), 1) << "what was read stays";
  EXPECT_THROW(TManager::SaveConfigFile(u""), EFileError);
  EXPECT_THROW(TManager::SaveConfigFile(Good), EFileError);
  EXPECT_EQ(test::ReadBytes(Path), Bad);
  EXPECT_EQ(test::ReadBytes(Good), SmallSettings);
  TManager::InitUnitSystemSetting(Good);
  EXPECT_NO_THROW(TManager::SaveConfigFile(u""));
}

TEST_F(ConfigFile, AMissingFileIsNotReplaced) {
  EXPECT_THROW(TManager::InitUnitSystemSetting(Folders.File("none.xml")), EFileError);
  EXPECT_FALSE(std::filesystem::exists(Folders.Root() / "none.xml"));
  EXPECT_THROW(TManager::InitUnitSystemSetting(u""), EFileError);
}

TEST_F(ConfigFile, ASaveIntoNowhereLeavesNothing) {
  Load(SmallSettings);
  EXPECT_THROW(TManager::SaveConfigFile(Folders.File("no/folder.xml")), EFileError);
  TManager::CurConfig()->Description = std::u16string(u"a\0b", 3);
  EXPECT_THROW(TManager::SaveConfigFile(Path), EXmlError);
  EXPECT_EQ(test::ReadBytes(Path), SmallSettings);
}

// ---------------------------------------------------------------- factory defaults

TEST_F(ConfigFile, FactoryFileLoadsAndSavesAlike) {
  GenerateUnitDefaultConfigFile();
  const std::string First = test::ReadBytes(Folders.File("UnitConfig.xml"));
  GenerateUnitDefaultConfigFile();
  EXPECT_EQ(test::ReadBytes(Folders.File("UnitConfig.xml")), First) << "generating twice gives the same file";
  TManager::InitUnitSystemSetting(u"");
  EXPECT_EQ(TManager::GetCurConfigIndex(), -1);
  EXPECT_EQ(Saved(), First);
}

} // namespace
} // namespace unitlib
