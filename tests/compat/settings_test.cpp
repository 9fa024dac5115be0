/// The factory file of every version loads for ever, into the same settings. A new version that writes another file adds
/// its own here; none is ever changed or taken away.
#include "tests/support/Settings.h"
#include "unitlib/convert/ZELUnitConvertor.h"
#include "unitlib/model/ZELUnitConfigFileGenerator.h"
#include "unitlib/model/ZELUnitMgr.h"
#include "unitlib/rtl/FileFolders.h"
#include "unitlib/rtl/Files.h"
#include "unitlib/rtl/Text.h"
#include "unitlib/rtl/Xml.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>

namespace unitlib {
namespace {

const std::filesystem::path Folder = test::SourceFile("tests/compat");
constexpr std::string_view Files[] = {"settings-1.xml"};
constexpr std::string_view Newest = "settings-1.xml";

class OldSettings : public testing::TestWithParam<std::string_view> {
protected:
  ~OldSettings() override { FreeUnitSystem(); }
  std::u16string Path() const { return (Folder / GetParam()).u16string(); }
  test::TPrivateFolders Folders;
};

TEST_P(OldSettings, AreWrittenAgainAsTheyWere) {
  TSystemUnitDataManager::InitUnitSystemSetting(Path());
  const std::u16string Copy = GetExePath() + u"copy.xml";
  TSystemUnitDataManager::SaveConfigFile(Copy);
  EXPECT_EQ(ReadWholeFile(Copy), ReadWholeFile(Path()));
}

TEST_P(OldSettings, ShowAndReadTheSameValues) {
  struct TCase {
    int Config, Code;
    double Value;
    std::u16string_view Shown;
  };
  constexpr TCase Cases[] = {
      {0, 0, 1689.1, u"5' 6 1/2\""},   {0, 7, 1676.4, u"5.500"},     {0, 1, 9290304, u"100.000"},
      {0, 2, 764554857.984, u"1.000"}, {0, 6, 0.45359237, u"1.000"}, {1, 3, -152.4, u"-0' 6\""},
      {2, 0, 1689.1, u"1689"},         {2, 1, 2.5E6, u"2.500"},      {2, 2, 2.5E9, u"2.500"},
      {3, 0, 1689.1, u"168.9"},        {3, 7, 1689.1, u"1.689"},     {3, 4, 7850, u"7850.000"}};
  TSystemUnitDataManager::InitUnitSystemSetting(Path());
  for (const TCase& Case : Cases) {
    SCOPED_TRACE(testing::Message() << "configuration " << Case.Config << " measure " << Case.Code);
    TSystemUnitDataManager::SetCurConfig(Case.Config);
    EXPECT_EQ(ToUtf8(TMeasureDataManager::StoreToDisplay(Case.Code, Case.Value)), ToUtf8(Case.Shown));
    EXPECT_TRUE(TMeasureDataManager::CheckDisplay(Case.Code, Case.Shown));
  }
}

INSTANTIATE_TEST_SUITE_P(Versions, OldSettings, testing::ValuesIn(Files),
                         [](const auto& Info) { return "File" + std::to_string(Info.index + 1); });

TEST(SettingsFiles, TheNewestIsWhatTheWriterWrites) {
  EXPECT_EQ(BuildUnitDefaultConfig()->SaveToMemory(), ReadWholeFile((Folder / Newest).u16string()));
}

TEST(SettingsFiles, AreAllListed) {
  std::set<std::string> There;
  for (const auto& Entry : std::filesystem::directory_iterator(Folder))
    if (Entry.path().extension() == ".xml") There.insert(Entry.path().filename().string());
  EXPECT_EQ(There, std::set<std::string>(std::begin(Files), std::end(Files)));
}

} // namespace
} // namespace unitlib
