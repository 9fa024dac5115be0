/// eval, elev, expr.
#include "tests/apps/UnitctlRun.h"

namespace unitlib::test {
namespace {

/// The measure of typed arithmetic shows feet and fractional inches.
class Expression : public TUnitctl {};

TEST_F(Expression, EvalOfImperialOperands) {
  // 66 inches and 12 inches are 78 inches: 1.9812 m.
  EXPECT_EQ(OutputOf({"eval", "5'6\"+1'"}), "value    1.9812 m\nstore    1.9812\ndisplay  6' 6\"\n");
}

TEST_F(Expression, EvalOfPlainNumbersCountsInTheCurrentUnit) {
  // In feet and inches a plain number counts inches: 7 x 25.4 mm.
  EXPECT_EQ(OutputOf({"eval", "1+2*3"}), "value    7\nstore    0.1778\ndisplay  0' 7\"\n");
  EXPECT_EQ(OutputOf({"eval", "1+2*3", "--system", "2"}), "value    7\nstore    7\ndisplay  7.000\n");
}

TEST_F(Expression, EvalOfNegativeBlocks) {
  EXPECT_EQ(OutputOf({"eval", "-(1+2)*3", "--system", "2"}), "value    -9\nstore    -9\ndisplay  -9.000\n");
}

TEST_F(Expression, EvalOfATinyLengthShowsItsNumber) {
  EXPECT_EQ(OutputOf({"eval", "0.000001", "--system", "2"}),
            "value    1E-6\nstore    1E-6\ndisplay  0.000\n");
}

TEST_F(Expression, EvalWithAVariable) {
  // 5' are 1.524 m.
  EXPECT_EQ(OutputOf({"eval", "L1+5'"}), "variable L1\nstore    L1+1.524\ndisplay  L1+5' 0\"\n");
}

TEST_F(Expression, EvalTellsWhatWasTakenForAName) {
  EXPECT_EQ(OutputOf({"eval", "- 5"}), "variable - 5\nstore    - 5\ndisplay  - 5\n");
}

TEST_F(Expression, EvalOfSeveralNamesEach) {
  EXPECT_EQ(OutputOf({"eval", "1'", "2'"}),
            "text     1'\nvalue    0.3048 m\nstore    0.3048\ndisplay  1' 0\"\n"
            "text     2'\nvalue    0.6096 m\nstore    0.6096\ndisplay  2' 0\"\n");
}

TEST_F(Expression, EvalShowsTheTree) {
  EXPECT_EQ(OutputOf({"eval", "--tree", "A-2*1'"})
                .find("tree\n"
                      "  -\n"
                      "    A  variable\n"
                      "    *\n"
                      "      2  number\n"
                      "      1'  imperial, 0.3048 m\n"),
            0U);
  EXPECT_EQ(OutputOf({"eval", "--tree", "-(1+2)"})
                .find("tree\n"
                      "  +  negative block\n"
                      "    1  number\n"
                      "    2  number\n"),
            0U);
}

struct TBadRow {
  const char* Name;
  std::string Text;
  std::string Err;
};

class BadExpression : public TUnitctl, public ::testing::WithParamInterface<TBadRow> {};

TEST_P(BadExpression, IsMarkedWhereReadingStopped) {
  const TRunResult Result = RunCommand({"eval", GetParam().Text});
  EXPECT_EQ(Result.Status, 2);
  EXPECT_EQ(Result.Err, GetParam().Err);
}

const TBadRow BadRows[] = {
    {"MissingOperand", "2*", "unitctl: \"2*\": can not be nil afer operator\n  2*\n    ^\n"},
    {"Function", "sin(1)", "unitctl: \"sin(1)\": unsupport function!\n  sin(1)\n     ^\n"},
    {"TwoVariables", "A+B", "unitctl: \"A+B\": a second variable; one is allowed\n  A+B\n    ^\n"},
    {"Empty", "", "unitctl: \"\": the text is empty\n"},
    {"Wide", "\xE6\xB7\xB7+",
     "unitctl: \"\xE6\xB7\xB7+\": can not be nil afer operator\n  \xE6\xB7\xB7+\n     ^\n"},
    {"DecimalInFeetAndInches", "5/2",
     "unitctl: \"5/2\": a number in it is not a value of \"Elevation/Segment\" in \"Feet and fractional "
     "inches\"\n"
     "  5/2\n   ^\n"},
};

INSTANTIATE_TEST_SUITE_P(Rows, BadExpression, ::testing::ValuesIn(BadRows),
                         [](const auto& Info) { return Info.param.Name; });

TEST_F(Expression, EvalOfALongTextNeitherHangsNorFalls) {
  std::string Sum = "1";
  for (int I = 0; I < 50000; ++I) Sum += "+1";
  EXPECT_EQ(OutputOf({"eval", Sum, "--system", "2"}), "value    50001\nstore    50001\ndisplay  50001.000\n");
  EXPECT_EQ(RunCommand({"eval", "--tree", std::string(200000, '(')}).Status, 2);
}

TEST_F(Expression, ElevationForms) {
  EXPECT_EQ(OutputOf({"elev", "store", "L1+5'6\"", "5'6\""}), "L1+1.6764\n1.6764\n");
  EXPECT_EQ(OutputOf({"elev", "edit", "L1+1.6764", "1.6764"}), "L1+5' 6\"\n5' 6\"\n");
  EXPECT_EQ(OutputOf({"elev", "display", "L1+1.6764", "1.6764"}), "L1+5' 6\"\n5' 6\"\n");
}

TEST_F(Expression, ABadElevationComesBackUnchangedAndIsReported) {
  const TRunResult Result = RunCommand({"elev", "store", "A+B", "1'"});
  EXPECT_EQ(Result.Status, 2);
  EXPECT_EQ(Result.Out, "A+B\n0.3048\n");
  EXPECT_EQ(Result.Err, "unitctl: \"A+B\": a second variable; one is allowed\n  A+B\n    ^\n");
}

TEST_F(Expression, ElevationCheck) {
  const TRunResult Result = RunCommand({"elev", "check", "L1+5'", "L1+L2", ""});
  EXPECT_EQ(Result.Status, 2);
  EXPECT_EQ(Result.Out, "valid    L1+5'\ninvalid  L1+L2\ninvalid  \n");
}

TEST_F(Expression, ExprReplacesImperialNumbers) {
  // 3'6" are 1.0668 m; the current unit is the foot-and-inch unit, whose plain numbers count feet here: 3.5.
  EXPECT_EQ(OutputOf({"expr", "0", "3'6\"+2"}), "3.5+2\n");
  OutputOf({"set", "0", "--unit", "Meters"});
  EXPECT_EQ(OutputOf({"expr", "0", "3'6\"+2"}), "1.0668+2\n");
  EXPECT_EQ(OutputOf({"expr", "0", "3'6\"", "--skip-imperial"}), "3'6\"\n");
  EXPECT_EQ(OutputOf({"expr", "Area", "3'6\"+2"}), "3'6\"+2\n");
}

TEST_F(Expression, WithoutAMeasureForItNothingIsCalculated) {
  TSystemUnitDataManager::InitUnitSystemSetting(u"");
  TSystemUnitDataManager::CurConfigMeasure(3)->ClassifyCode = 33;
  TSystemUnitDataManager::SaveConfigFile(u"");
  FreeUnitSystem();
  const TRunResult Result = RunCommand({"eval", "1'"});
  EXPECT_EQ(Result.Status, 1);
  EXPECT_EQ(
      Result.Err,
      "unitctl: the unit system has no measure with classify code 3, which typed arithmetic is read in\n");
}

} // namespace
} // namespace unitlib::test
