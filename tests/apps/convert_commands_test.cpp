/// format, parse, check.
#include "tests/apps/UnitctlRun.h"

#include "unitlib/rtl/Text.h"

namespace unitlib::test {
namespace {

class Convert : public TUnitctl {};

TEST_F(Convert, FormatShowsStoredValues) {
  // 66 inches; 92903.04 mm2 are a square foot, 764554857.984 mm3 a cubic yard.
  EXPECT_EQ(OutputOf({"format", "0", "1676.4"}), "5' 6\"\n");
  EXPECT_EQ(OutputOf({"format", "length (basic information)", "1676.4"}), "5' 6\"\n");
  EXPECT_EQ(OutputOf({"format", "Area", "92903.04", "185806.08"}), "1.000\n2.000\n");
  EXPECT_EQ(OutputOf({"format", "2", "764554857984"}), "1,000.000\n");
}

TEST_F(Convert, FormatOptions) {
  EXPECT_EQ(OutputOf({"format", "Volume", "764554857984", "--append-symbol"}), "1,000.000 CY\n");
  EXPECT_EQ(OutputOf({"format", "Volume", "764554857984", "--no-group"}), "1000.000\n");
  // Half a thousandth of a cubic yard less; unrounded the digits stay, padded to the increment's decimals.
  EXPECT_EQ(OutputOf({"format", "Volume", "764554857.984", "--no-round"}), "1.000\n");
  EXPECT_EQ(OutputOf({"format", "Area", "--scale", "4", "0.09290304"}), "1.000\n");
  OutputOf({"set", "Area", "--symbol", "SF", "--check", "ShowPlusSymbolForPosValue=on"});
  EXPECT_EQ(OutputOf({"format", "Area", "92903.04"}), "+1.000 SF\n");
  EXPECT_EQ(OutputOf({"format", "Area", "92903.04", "--no-symbol", "--no-plus"}), "1.000\n");
}

TEST_F(Convert, FormatKeepsALineForEachValue) {
  const TRunResult Result = RunCommand({"format", "0", "304.8", "12x", "nan", "1e300", "609.6"});
  EXPECT_EQ(Result.Status, 2);
  EXPECT_EQ(Result.Out, "1' 0\"\n\n\n\n2' 0\"\n");
  EXPECT_EQ(
      Result.Err.find(
          "unitctl: \"12x\" is not a number\n  12x\n    ^\nunitctl: \"nan\" is not a number\n  nan\n  ^\n"
          "unitctl: \"1e300\": "),
      0U)
      << Result.Err;
}

TEST_F(Convert, FormatOfAMeasureThatDoesNotExistIsNotZero) {
  const TRunResult Result = RunCommand({"format", "99", "1"});
  EXPECT_EQ(Result.Status, 1);
  EXPECT_EQ(Result.Out, "");
}

TEST_F(Convert, UnitWithoutParserIsRefused) {
  TSystemUnitDataManager::InitUnitSystemSetting(u"");
  TSystemUnitDataManager::CurConfigMeasure(1)->GetCurUnit()->UnitParserClassName = u"TFoo";
  TSystemUnitDataManager::SaveConfigFile(u"");
  FreeUnitSystem();
  for (const char* Command : {"format", "parse", "check"}) {
    const TRunResult Result = RunCommand({Command, "Area", "1"});
    EXPECT_EQ(Result.Status, 1);
    EXPECT_EQ(Result.Out, "");
    EXPECT_EQ(
        Result.Err,
        "unitctl: unit \"Square feet\" of \"Area\" names the parser class \"TFoo\", which does not exist\n");
  }
}

TEST_F(Convert, ParseReadsTexts) {
  EXPECT_EQ(OutputOf({"parse", "0", "5'6\"", "5' 6 1/2\"", "66", "-3/4\""}),
            "1676.4\n1689.1\n1676.4\n-19.05\n");
  EXPECT_EQ(OutputOf({"parse", "0", "5'6\"", "--scale", "3"}), "1.6764\n");
  EXPECT_EQ(OutputOf({"parse", "Area", "1,000 SF"}), "92903040\n");
}

TEST_F(Convert, ParseKeepsALineForEachText) {
  const TRunResult Result = RunCommand({"parse", "Area", "1", "2x", "3"});
  EXPECT_EQ(Result.Status, 2);
  EXPECT_EQ(Result.Out, "92903.04\n\n278709.12\n");
  EXPECT_EQ(Result.Err, "unitctl: \"2x\" is not a value of \"Area\" in \"Square feet\"\n  2x\n   ^\n");
}

TEST_F(Convert, CheckTells) {
  const TRunResult Result = RunCommand({"check", "0", "5'6", "5 feet"});
  EXPECT_EQ(Result.Status, 2);
  EXPECT_EQ(Result.Out, "valid    5'6\ninvalid  5 feet\n");
  EXPECT_EQ(Result.Err, "");
  EXPECT_EQ(RunCommand({"check", "0", "5'6"}).Status, 0);
}

TEST_F(Convert, MalformedTextIsRefused) {
  const TRunResult Result = RunCommand({"parse", "0", "5\xFF"});
  EXPECT_EQ(Result.Status, 1);
  EXPECT_EQ(Result.Err, "unitctl: Not well-formed UTF-8: 5\\xFF\n");
}

} // namespace
} // namespace unitlib::test
