/// parse --as-typed, explain.
#include "tests/apps/UnitctlRun.h"

#include <gmock/gmock.h>

namespace unitlib::test {
namespace {

using ::testing::HasSubstr;

class TypedCommands : public TUnitctl {};

TEST_F(TypedCommands, ParseReadsTheSpellingsOfTheTrade) {
  EXPECT_EQ(OutputOf({"parse", "0", "--as-typed", "10'-6\"", "2.5 m", "10 ft 6 in", "-5'6\""}),
            "3200.4\n2500\n3200.4\n-1676.4\n");
  EXPECT_EQ(OutputOf({"parse", "0", "--as-typed", "2.5 m", "--scale", "3"}), "2.5\n");
  EXPECT_EQ(OutputOf({"parse", "3", "--as-typed", "--expression", "L1 - (-5' 6 1/2\")"}), "L1+5'6 1/2\"\n");
  EXPECT_EQ(OutputOf({"parse", "0", "--as-typed", "--decimal-comma", "2,5 m"}), "2500\n");
  EXPECT_EQ(OutputOf({"parse", "0", "--as-typed", "--language", "german", "12 Zoll"}), "304.8\n");
}

TEST_F(TypedCommands, ParseRefusesWithBothReadings) {
  const TRunResult Result = RunCommand({"parse", "0", "--as-typed", "--expression", "5-6", "1'"});
  EXPECT_EQ(Result.Status, 2);
  EXPECT_EQ(Result.Out, "\n304.8\n");
  EXPECT_EQ(Result.Err,
            "unitctl: \"5-6\": the dash may join or take away; write 5' 6\" or (5)-(6)\n  5-6\n   ^\n");
}

TEST_F(TypedCommands, OptionsOfTheReaderNeedIt) {
  EXPECT_EQ(RunCommand({"parse", "0", "--decimal-comma", "1"}).Status, 1);
  const TRunResult Result = RunCommand({"parse", "0", "--as-typed", "--language", "klingon", "1"});
  EXPECT_EQ(Result.Status, 1);
  EXPECT_THAT(Result.Err, HasSubstr("\"klingon\" is no language"));
}

TEST_F(TypedCommands, ExplainTellsEachStep) {
  EXPECT_EQ(OutputOf({"explain", "0", "10'-6 1/2\""}),
            "typed          10'-6 1/2\"\n"
            "understood     10 feet 6 1/2 inches, dash read as a separator\n"
            "rewritten      10'6 1/2\"\n"
            "imperial form  10'6 1/2\"\n"
            "feet           10\n"
            "inches         6\n"
            "fraction       1/2\n"
            "value          3213.1 mm\n"
            "shown back     10' 6 1/2\"\n");
  EXPECT_EQ(OutputOf({"explain", "Area", "1,000 SF"}),
            "typed          1,000 SF\n"
            "understood     1000 square feet, digits read in groups\n"
            "symbol removed 1,000 \n"
            "value          92903040 mm2\n"
            "shown back     1,000.000 SF\n");
}

TEST_F(TypedCommands, ExplainTellsWhyNot) {
  const TRunResult Result = RunCommand({"explain", "0", "5 fet"});
  EXPECT_EQ(Result.Status, 2);
  EXPECT_EQ(Result.Out, "");
  EXPECT_EQ(Result.Err, "unitctl: \"5 fet\": \"fet\" is no unit that is read here\n  5 fet\n    ^\n");
}

TEST_F(TypedCommands, ExplainWritesJson) {
  EXPECT_EQ(OutputOf({"explain", "0", "--json", "5'"}),
            "{\n  \"typed\": \"5'\",\n  \"accepted\": true,\n  \"rewritten\": \"5'\",\n"
            "  \"understood\": \"5 feet\",\n  \"storeValue\": \"1524\",\n  \"steps\": [\n"
            "    {\n      \"name\": \"typed\",\n      \"text\": \"5'\"\n    },\n"
            "    {\n      \"name\": \"understood\",\n      \"text\": \"5 feet\"\n    },\n"
            "    {\n      \"name\": \"imperial form\",\n      \"text\": \"5'0 0/1\\\"\"\n    },\n"
            "    {\n      \"name\": \"feet\",\n      \"text\": \"5\"\n    },\n"
            "    {\n      \"name\": \"inches\",\n      \"text\": \"0\"\n    },\n"
            "    {\n      \"name\": \"fraction\",\n      \"text\": \"0/1\"\n    },\n"
            "    {\n      \"name\": \"value\",\n      \"text\": \"1524 mm\"\n    },\n"
            "    {\n      \"name\": \"shown back\",\n      \"text\": \"5' 0\\\"\"\n    }\n  ]\n}\n");
  const TRunResult Refused = RunCommand({"explain", "0", "--json", "1-1/2"});
  EXPECT_EQ(Refused.Status, 2);
  EXPECT_THAT(Refused.Out, HasSubstr("\"problem\": \"ambiguous\""));
  EXPECT_THAT(Refused.Out, HasSubstr("\"1 1/2\\\"\""));
  EXPECT_EQ(Refused.Err, "");
}

} // namespace
} // namespace unitlib::test
