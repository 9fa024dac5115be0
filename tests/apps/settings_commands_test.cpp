/// init, show, use, set, group, reset.
#include "tests/apps/UnitctlRun.h"

#include "unitlib/model/ZELUnitConfigFileGenerator.h"
#include "unitlib/rtl/Text.h"

namespace unitlib::test {
namespace {

using TManager = TSystemUnitDataManager;

/// The settings as the library reads them back.
class Settings : public TUnitctl {
protected:
  TMeasure& Load(int Code, int System = 0) {
    TManager::InitUnitSystemSetting(u"");
    FChosen = TManager::GetCurConfigIndex();
    TManager::SetCurConfig(System);
    return *TManager::CurConfigMeasure(Code);
  }
  ~Settings() override { FreeUnitSystem(); }

  int FChosen = -2;
};

TEST_F(Settings, InitWritesTheFactorySettings) {
  EXPECT_EQ(OutputOf({"init", Path("new.xml")}),
            "wrote " + Path("new.xml") +
                "\nnext: choose a unit system, for example  unitctl use \"US Imperial System\"\n");
  GenerateUnitDefaultConfigFile(Folders.File("factory.xml"));
  EXPECT_EQ(ReadFile("new.xml"), ReadFile("factory.xml"));
}

TEST_F(Settings, InitDoesNotOverwrite) {
  WriteFile("mine.xml", "mine");
  const TRunResult Result = RunCommand({"init", Path("mine.xml")});
  EXPECT_EQ(Result.Status, 1);
  EXPECT_EQ(Result.Err, "unitctl: " + Path("mine.xml") +
                            ": is there already; --force replaces it by the factory settings\n");
  EXPECT_EQ(ReadFile("mine.xml"), "mine");
  EXPECT_EQ(RunCommand({"init", "--force", Path("mine.xml")}).Status, 0);
  EXPECT_NE(ReadFile("mine.xml"), "mine");
}

TEST_F(Settings, InitWithASystemChoosesIt) {
  EXPECT_EQ(OutputOf({"init", "--force", "--system", "taiwan metric system"}),
            "wrote " + Path("UnitConfig.xml") + "\n");
  Load(0);
  EXPECT_EQ(FChosen, 3);
}

TEST_F(Settings, InitWithAnUnknownSystemWritesNothing) {
  const TRunResult Result = RunCommand({"init", Path("new.xml"), "--system", "Taiwan"});
  EXPECT_EQ(Result.Status, 1);
  EXPECT_EQ(Result.Err, "unitctl: no unit system \"Taiwan\"; the nearest is \"Taiwan Metric System\"\n");
  EXPECT_FALSE(Exists("new.xml"));
}

TEST_F(Settings, FactorySettingsHaveNoChoiceAndThatIsSaid) {
  OutputOf({"init", "--force"});
  const TRunResult Result = RunCommand({"format", "0", "1"});
  EXPECT_EQ(Result.Status, 1);
  EXPECT_EQ(Result.Err,
            "unitctl: no unit system is chosen in this settings file: choose one with  unitctl use \"US "
            "Imperial System\"  or add  --system \"US Imperial System\"  (unitctl show lists them)\n");
  EXPECT_EQ(OutputOf({"format", "0", "1676.4", "--system", "0"}), "5' 6\"\n");
  EXPECT_NE(OutputOf({"show"}).find("No unit system is chosen yet"), std::string::npos);
}

TEST_F(Settings, NothingIsWrittenBehindTheUsersBack) {
  OutputOf({"init", "--force"});
  const std::string Before = ReadFile("UnitConfig.xml");
  OutputOf({"--system", "1", "show"});
  OutputOf({"--system", "1", "format", "0", "1"});
  OutputOf({"--system", "1", "schedule"}, "measure,value\n0,1\n");
  OutputOf({"--system", "1", "eval", "1'"});
  EXPECT_EQ(ReadFile("UnitConfig.xml"), Before);
  OutputOf({"use", "1"});
  EXPECT_TRUE(std::filesystem::is_empty(Folders.Root() / "docs")); // no working copy
}

TEST_F(Settings, MissingSettingsFile) {
  const TRunResult Result = RunCommand({"--settings", Path("no.xml"), "show"});
  EXPECT_EQ(Result.Status, 1);
  EXPECT_EQ(Result.Err, "unitctl: " + Path("no.xml") +
                            ": no such settings file; write one with  unitctl init " + Path("no.xml") + "\n");
}

TEST_F(Settings, DamagedSettingsFileNamesTheLine) {
  WriteFile("bad.xml", "<?xml version=\"1.0\"?>\n<Unit>\n<TemplateConfig/>\n</Unit>\n");
  const TRunResult Result = RunCommand({"--settings", Path("bad.xml"), "show"});
  EXPECT_EQ(Result.Status, 1);
  EXPECT_EQ(Result.Err.find("unitctl: " + Path("bad.xml") + ":3: "), 0U) << Result.Err;
  EXPECT_NE(Result.Err.find("CurConfigIndex"), std::string::npos);
}

TEST_F(Settings, UseChooses) {
  EXPECT_EQ(OutputOf({"use", "UK Imperial System"}), "now in use: UK Imperial System\n");
  Load(0);
  EXPECT_EQ(FChosen, 1);
  EXPECT_EQ(OutputOf({"use", "2"}), "now in use: Standard Metric System\n");
  Load(0);
  EXPECT_EQ(FChosen, 2);
}

TEST_F(Settings, SetChangesUnitRoundingSymbolAndSwitches) {
  // 1234567890.12345 mm2 are 1234.56789 m2.
  EXPECT_EQ(OutputOf({"set", "Area", "--unit", "Square meters", "--round", "1 decimal place", "--symbol",
                      "m2", "--check", "UseDigitGroup=on", "--check", "ShowPlusSymbolForPosValue=on"}),
            "\"Area\": Square meters, 1 decimal place, symbol m2, for example +1,234.6 m2\n");
  const TUnit& Unit = *Load(1).GetCurUnit();
  EXPECT_EQ(Unit.UnitIdentifyCode, 102);
  EXPECT_EQ(Unit.CurRoundIndex, 4);
  EXPECT_EQ(Unit.CurUnitSymbolIndex, 1);
  EXPECT_TRUE(Unit.UseDigitGroup.Checked);
  EXPECT_TRUE(Unit.ShowPlusForPosValue.Checked);
  EXPECT_FALSE(Unit.SuppressTrail0.Checked);
}

TEST_F(Settings, SetTakesNumbers) {
  OutputOf({"set", "1", "--unit", "102", "--round", "4", "--symbol", "1"});
  const TUnit& Unit = *Load(1).GetCurUnit();
  EXPECT_EQ(Unit.UnitIdentifyCode, 102);
  EXPECT_EQ(Unit.CurRoundIndex, 4);
  EXPECT_EQ(Unit.CurUnitSymbolIndex, 1);
}

TEST_F(Settings, SetAnIncrementOfOnesOwn) {
  // 1234567890123.45 mm3 / 764554857.984 = 1614.75...; in steps of 0.25 that is 1614.75.
  EXPECT_EQ(OutputOf({"set", "Volume", "--round", "Custom", "--increment", "0.25"}),
            "\"Volume\": Cubic yards, Custom 0.25, symbol None, for example 1,614.75\n");
  EXPECT_EQ(Load(2).GetCurUnit()->GetCurRound()->Increment, u"0.25");
}

TEST_F(Settings, SetForThisRunsSystemKeepsTheChoice) {
  OutputOf({"--system", "2", "set", "Area", "--unit", "Square millimeters"});
  EXPECT_EQ(Load(1, 2).GetCurUnit()->UnitIdentifyCode, 104);
  EXPECT_EQ(FChosen, 0);
  EXPECT_EQ(Load(1, 0).GetCurUnit()->UnitIdentifyCode, 100);
}

TEST_F(Settings, SetReachesTheMeasureWithoutAUnitByPosition) {
  EXPECT_EQ(OutputOf({"set", "#8", "--unit", "601"}), "\"Volume per Unit Length\": Pounds per Foot\n");
  Load(0);
  EXPECT_EQ(TManager::CurConfig()->Measure(8, false)->CurUnitIndex, 1);
}

struct TRefusedSet {
  const char* Name;
  std::vector<std::string> Options;
  std::string Message;
};

class RefusedSet : public TUnitctl, public ::testing::WithParamInterface<TRefusedSet> {};

TEST_P(RefusedSet, WritesNothing) {
  const std::string Before = ReadFile("UnitConfig.xml");
  std::vector<std::string> Arguments = {"set", "Area", "--unit", "Square inches"};
  Arguments.insert(Arguments.end(), GetParam().Options.begin(), GetParam().Options.end());
  const TRunResult Result = RunCommand(Arguments);
  EXPECT_EQ(Result.Status, 1);
  EXPECT_EQ(Result.Err, "unitctl: " + GetParam().Message);
  EXPECT_EQ(ReadFile("UnitConfig.xml"), Before);
}

const TRefusedSet RefusedSets[] = {
    {"FixedIncrement",
     {"--increment", "0.05"},
     "the increment of the rounding \"3 decimal places\" of \"Square inches\" is fixed; choose one that can "
     "be edited, "
     "such as  --round Custom --increment 0.05\n"},
    {"NegativeIncrement", {"--round", "Custom", "--increment", "-3"}, "an increment is a number above 0\n"},
    {"ZeroIncrement", {"--round", "Custom", "--increment", "0"}, "an increment is a number above 0\n"},
    {"NoNumber",
     {"--round", "Custom", "--increment", "0,5"},
     "an increment is a number above 0\n  0,5\n   ^\n"},
    {"FractionInADecimalUnit",
     {"--round", "Custom", "--increment", "1/2"},
     "an increment is a number above 0\n  1/2\n   ^\n"},
    {"DisabledSwitch",
     {"--check", "Suppress0Feet=on"},
     "the switch Suppress0Feet cannot be changed for \"Square inches\"\n"},
    {"UnknownSwitch",
     {"--check", "DigitGroup=on"},
     "no format switch \"DigitGroup\"; the nearest is \"UseDigitGroup\"\n"},
    {"UnknownState",
     {"--check", "UseDigitGroup=maybe"},
     "--check wants NAME=on or NAME=off\n  UseDigitGroup=maybe\n                ^\n"},
    {"NoState",
     {"--check", "UseDigitGroup"},
     "--check wants NAME=on or NAME=off\n  UseDigitGroup\n               ^\n"},
};

INSTANTIATE_TEST_SUITE_P(Rows, RefusedSet, ::testing::ValuesIn(RefusedSets),
                         [](const auto& Info) { return Info.param.Name; });

TEST_F(Settings, GroupChoosesForAllMeasures) {
  EXPECT_EQ(OutputOf({"group", "1,2345,6789.00"}), "digits are grouped as 1,2345,6789.00\n");
  // 12346 square feet of 92903.04 mm2.
  EXPECT_EQ(OutputOf({"format", "Area", "1146980931.84"}), "1,2346.000\n");
  EXPECT_EQ(OutputOf({"group", "0"}), "digits are grouped as 123,456,789.00\n");
  EXPECT_EQ(OutputOf({"format", "Area", "1146980931.84"}), "12,346.000\n");
}

TEST_F(Settings, ResetBringsMeasuresBack) {
  OutputOf({"set", "Area", "--unit", "Square meters"});
  OutputOf({"set", "Mass", "--unit", "Kilograms"});
  OutputOf({"reset", "Area"});
  EXPECT_EQ(Load(1).CurUnitIndex, 0);
  EXPECT_EQ(Load(6).CurUnitIndex, 1);
  EXPECT_EQ(OutputOf({"reset"}), "all measures of \"US Imperial System\" are back to their defaults\n");
  EXPECT_EQ(Load(6).CurUnitIndex, 0);
}

TEST_F(Settings, ShowListsMeasures) {
  const std::string Text = OutputOf({"show"});
  EXPECT_NE(Text.find("*    0  US Imperial System\n"), std::string::npos) << Text;
  // 1234567890.12345 mm2 / 92903.04 = 13288.778...
  EXPECT_NE(
      Text.find(
          "   1  Area                         Square feet                 3 decimal places      None     "
          "13,288.778\n"),
      std::string::npos)
      << Text;
  // The measure behind another of the same classify code has no example of its own.
  EXPECT_NE(Text.find("   0  Volume per Unit Length       -                           -                     "
                      "-                 -\n"),
            std::string::npos)
      << Text;
}

TEST_F(Settings, ShowOneMeasure) {
  const std::string Text = OutputOf({"show", "elevation/segment"});
  EXPECT_EQ(Text.find("Elevation/Segment, classify code 3, in US Imperial System\n"), 0U);
  EXPECT_NE(Text.find("*    11  Feet and fractional inches  FT-IN            TFeetAndFractionalInchParser\n"),
            std::string::npos)
      << Text;
  EXPECT_NE(Text.find("*    7  To the nearest 1/32\"        1/32\n"), std::string::npos) << Text;
  EXPECT_NE(Text.find("Suppress0Feet              off    yes\n"), std::string::npos) << Text;
}

TEST_F(Settings, ShowReportsAnExampleThatCannotBeShown) {
  Load(1).GetCurUnit()->GetCurRound()->SetIncrement(u"abc");
  TManager::SaveConfigFile(u"");
  const TRunResult Result = RunCommand({"show"});
  EXPECT_EQ(Result.Status, 2);
  EXPECT_NE(Result.Err.find("an example of \"US Imperial System\" cannot be shown"), std::string::npos)
      << Result.Err;
  EXPECT_NE(Result.Out.find("   2  Volume "), std::string::npos);
}

TEST_F(Settings, ShowAsJson) {
  const std::string Text = OutputOf({"show", "--json"});
  EXPECT_EQ(Text.find("{\n  \"settings\": \""), 0U) << Text.substr(0, 200);
  EXPECT_NE(Text.find("\"currentSystem\": 0,"), std::string::npos);
  EXPECT_NE(Text.find("\"exampleDisplay\": \"4' 0 19/32\\\"\""), std::string::npos);
  EXPECT_NE(Text.find("\"To the nearest 1/32\\\"\""), std::string::npos);
  OutputOf({"init", "--force"});
  EXPECT_NE(OutputOf({"show", "--json"}).find("\"currentSystem\": null,"), std::string::npos);
}

} // namespace
} // namespace unitlib::test
