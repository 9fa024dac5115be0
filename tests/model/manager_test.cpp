/// The data manager: which set and configuration is current, the working copy, restoring.
#include "tests/support/Settings.h"
#include "unitlib/model/ZELUnitConfigFileGenerator.h"
#include "unitlib/rtl/Errors.h"
#include "unitlib/rtl/FileFolders.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace unitlib {
namespace {

using TManager = TSystemUnitDataManager;
using test::TPrivateFolders;

class Manager : public testing::Test {
protected:
  Manager() {
    GenerateUnitDefaultConfigFile(Fresh);
    TManager::InitUnitSystemSetting(Fresh);
    TManager::SetCurConfig(1);
    TManager::SaveConfigFile(Chosen);
    FreeUnitSystem();
  }
  ~Manager() override { FreeUnitSystem(); }
  bool HasWorkingCopy() const {
    return std::filesystem::exists(std::filesystem::path(Folders.WorkingCopy()));
  }

  TPrivateFolders Folders;
  std::u16string Fresh = Folders.File("fresh.xml");   // no configuration chosen
  std::u16string Chosen = Folders.File("chosen.xml"); // configuration 1
};

TEST_F(Manager, WithoutChoiceTheHostChoosesAndTheWorkingCopyIsWritten) {
  InitialUnitSystem(Fresh, CYStandMetric, false);
  EXPECT_EQ(TManager::CurConfig()->Description, u"Standard Metric System");
  EXPECT_TRUE(HasWorkingCopy());
  EXPECT_NE(test::ReadBytes(Folders.WorkingCopy()).find("CurConfigIndex=\"2\""), std::string::npos);
  EXPECT_NE(test::ReadBytes(Fresh).find("CurConfigIndex=\"-1\""), std::string::npos)
      << "the loaded file is not touched";
}

TEST_F(Manager, TheChoiceOfTheFileWins) {
  InitialUnitSystem(Chosen, CYStandMetric, false);
  EXPECT_EQ(TManager::GetCurConfigIndex(), 1);
  EXPECT_FALSE(HasWorkingCopy());
  InitialUnitSystem(Chosen, CYStandMetric, true);
  EXPECT_EQ(TManager::GetCurConfigIndex(), 1);
  EXPECT_TRUE(HasWorkingCopy());
  EXPECT_EQ(TManager::GetUnitConfigFileName(), Chosen);
}

TEST_F(Manager, TheLowByteOfAnIndexIsKept) {
  TManager::InitUnitSystemSetting(Chosen);
  TManager::SetCurConfig(258);
  TManager::SetCurretnConfigueType(CYAmInch, false);
  EXPECT_EQ(TManager::GetCurConfigIndex(), 2);
  TManager::SetCurConfig(-2);
  TManager::SetCurretnConfigueType(CYAmInch, false);
  EXPECT_EQ(TManager::GetCurConfigIndex(), 254);
  EXPECT_THROW(TManager::CurConfig(), EListError);
}

TEST_F(Manager, AConfigurationThatTheFileLacksRaises) {
  InitialUnitSystem(Fresh, CYINMetric, false);
  EXPECT_EQ(TManager::GetCurConfigIndex(), 4);
  EXPECT_THROW(TManager::CurConfig(), EListError);
  EXPECT_THROW(TManager::CurConfigMeasure(0), EListError);
  EXPECT_THROW(TManager::RestoreDefaultUnitSystem(0), EListError);
  EXPECT_THROW(TManager::UpdateDispalyValue(), EListError);
}

TEST_F(Manager, TheReportSetBecomesCurrent) {
  InitialUnitSystem(Chosen, CYAmInch, false);
  TManager::InitSystemUnit(Fresh);
  EXPECT_EQ(TManager::GetCurConfigIndex(), -1);
  EXPECT_EQ(TManager::GetUnitConfigFileName(), Fresh);
  EXPECT_THROW(TManager::CurConfig(), EListError) << "the report load chooses no configuration";
  TManager::ConfigueUnitSystem(CYTWMetric);
  EXPECT_EQ(TManager::CurConfig(), &(*TManager::FUnitConfigContainerForReport)[3]);
  EXPECT_EQ(&TManager::CurUseUnitConfigContainer(), TManager::FUnitConfigContainerForReport.get());
  EXPECT_EQ(TManager::FUnitConfigContainer->Count(), 4) << "the project set stays loaded";
}

TEST_F(Manager, AccessorsRaiseBeforeTheFirstLoadAndAfterFree) {
  auto ExpectErrors = [] {
    EXPECT_THROW(TManager::CurConfig(), EListError);
    EXPECT_THROW(TManager::CurConfigMeasure(0), EListError);
    EXPECT_THROW(TManager::CurUseUnitConfigContainer(), EListError);
    EXPECT_THROW(TManager::CurDigitGroup(), EListError);
    EXPECT_THROW(TManager::DigitGroup(0), EListError);
    EXPECT_THROW(TManager::DigitGroupCount(), EListError);
    EXPECT_THROW(TManager::SetCurDigitGroup(u"x"), EListError);
    EXPECT_THROW(TManager::SaveConfigFile(u"x"), EListError);
    EXPECT_THROW(TManager::SavetoModel(CYAmInch), EListError);
    EXPECT_THROW(TManager::UpdateDispalyValue(), EListError);
    EXPECT_THROW(TManager::RestoreDefaultUnitSystem(0), EListError);
  };
  ExpectErrors();
  InitialUnitSystem(Chosen, CYAmInch, false);
  EXPECT_NO_THROW(TManager::CurConfig());
  FreeUnitSystem();
  EXPECT_EQ(TManager::FUnitConfigContainer, nullptr);
  ExpectErrors();
  FreeUnitSystem();
}

TEST_F(Manager, RestoresTheCurrentConfigurationAndThenSwitches) {
  InitialUnitSystem(Chosen, CYAmInch, false);
  TManager::SetCurConfig(0);
  TMeasure& Area = *TManager::CurConfigMeasure(1);
  Area.CurUnitIndex = 2;
  TMeasure& Other = TManager::CurUseUnitConfigContainer()[3].MeasureContainer[3];
  Other.CurUnitIndex = 0;
  TManager::RestoreDefaultUnitSystem(3);
  EXPECT_EQ(Area.CurUnitIndex, 0);
  EXPECT_EQ(Other.CurUnitIndex, 0) << "the configuration switched to is not restored";
  EXPECT_EQ(TManager::GetCurConfigIndex(), 3);
  TManager::RestoreDefaultUnitSystem(256 + 1);
  EXPECT_EQ(TManager::GetCurConfigIndex(), 1);
}

TEST_F(Manager, TheFirstMeasureWithACodeIsFound) {
  InitialUnitSystem(Chosen, CYAmInch, false);
  EXPECT_EQ(TManager::CurConfigMeasure(0),
            &TManager::CurConfig()->MeasureContainer[0]); // measure 8 has code 0 as well
  EXPECT_EQ(TManager::CurConfigMeasure(99), nullptr);
}

TEST_F(Manager, DigitGroupsAreChosenByDescription) {
  InitialUnitSystem(Chosen, CYAmInch, false);
  TManager::SetCurDigitGroup(u"1,2345,6789.00");
  EXPECT_EQ(TManager::GetCurDigitGroupIndex(), 1);
  TManager::SetCurDigitGroup(u"none of these");
  EXPECT_EQ(TManager::CurDigitGroup()->DigitGroupParserClassName, u"TDigitGroup4CommaParser");
  TManager::SetCurDigitGroupIndex(7);
  EXPECT_THROW(TManager::CurDigitGroup(), EListError);
}

TEST_F(Manager, ExamplesAreRecomputedAndFailuresKeptApart) {
  InitialUnitSystem(Chosen, CYAmInch, false);
  TManager::SetCurConfig(2);
  TMeasure& Area = *TManager::CurConfigMeasure(1);
  Area.ExampleValue = u"1,5"; // no number: "." is the mark in every locale
  TManager::CurConfigMeasure(2)->GetCurUnit()->GetCurRound()->SetIncrement(u"x");
  EXPECT_THROW(TManager::UpdateDispalyValue(), EConvertError);
  EXPECT_EQ(Area.ExampleDisplayValue, u"");
  EXPECT_EQ(TManager::CurConfigMeasure(2)->ExampleDisplayValue, u"");
  EXPECT_EQ(TManager::CurConfigMeasure(6)->ExampleDisplayValue, u"1.000");
  const TMeasure& Last = TManager::CurConfig()->MeasureContainer[8];
  EXPECT_EQ(Last.ExampleDisplayValue, TManager::CurConfigMeasure(0)->ExampleDisplayValue) << "code 0 twice";
  EXPECT_EQ(Last.ExampleDisplayValue, u"1235");
}

TEST_F(Manager, FactoryFileCanBeRestoredAsAWhole) {
  InitialUnitSystem(Fresh, CYAmInch, false);
  EXPECT_NO_THROW(TManager::RestoreDefaultUnitSystem(0));
  EXPECT_EQ(TManager::CurConfig()->MeasureContainer[8].CurUnitIndex, -1);
}

struct TFolderRow {
  std::u16string Documents;
  std::u16string Result;
};

TEST_F(Manager, WorkingFolderKeepsItsTwoSpellings) {
  const std::u16string D(1, PathDelim());
  auto Path = [&D](std::u16string Text) {
    for (char16_t& C : Text)
      if (C == u'/') C = D[0];
    return Text;
  };
  for (const TFolderRow& Row : {TFolderRow{u"/pub/Documents", u"/pub/Documents/Quillmere/ZEL/9.0/"},
                                {u"/pub/Documents/", u"/pub/Documents/Quillmere/ZEL/9.0/"},
                                {u"/QuillMere/xQuillMerex", u"/Tarnwick/xTarnwickx/Quillmere/ZEL/9.0/"},
                                {u"/quillmere/Quillmere", u"/quillmere/Quillmere/Quillmere/ZEL/9.0/"}}) {
    SetCommonDocumentsPath(Path(Row.Documents));
    EXPECT_EQ(GetTempPathForUnit(), Path(Row.Result));
  }
}

TEST_F(Manager, AWorkingCopyThatCannotBeWrittenIsReported) {
  test::WriteBytes(Folders.File("file"), "x");
  SetCommonDocumentsPath(Folders.File("file"));
  EXPECT_THROW(InitialUnitSystem(Fresh, CYAmInch, false), EFileError);
  EXPECT_EQ(test::ReadBytes(Folders.File("file")), "x");
}

} // namespace
} // namespace unitlib
