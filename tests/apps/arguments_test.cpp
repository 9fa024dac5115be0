/// What may stand on the command line, and what is said about what may not.
#include "tests/apps/UnitctlRun.h"

namespace unitlib::test {
namespace {

class Arguments : public TUnitctl {};

TEST_F(Arguments, NegativeValuesAreValues) {
  EXPECT_EQ(OutputOf({"format", "0", "-1676.4"}), "-5' 6\"\n");
  EXPECT_EQ(OutputOf({"format", "0", "--no-round", "-1676.4", "1676.4"}), "-5' 6\"\n5' 6\"\n");
  EXPECT_EQ(OutputOf({"format", "-1", "-1.5"}), "-1.5\n");
}

TEST_F(Arguments, TextsMayBeginWithHyphens) {
  EXPECT_EQ(OutputOf({"parse", "0", "-5' 6\""}), "-1676.4\n");
  EXPECT_EQ(OutputOf({"elev", "check", "--5", "-(1+2)", "-A+5'"}),
            "valid    --5\nvalid    -(1+2)\nvalid    -A+5'\n");
}

TEST_F(Arguments, BehindTwoHyphensEverythingIsText) {
  const TRunResult Result = RunCommand({"check", "0", "--", "--help", "--scale", "--"});
  EXPECT_EQ(Result.Out, "invalid  --help\ninvalid  --scale\ninvalid  --\n");
  EXPECT_EQ(Result.Status, 2);
}

TEST_F(Arguments, BracketsAndCommandNamesAreTexts) {
  const TRunResult Result = RunCommand({"check", "0", "[1,2]", "{3}", "show", "eval", "++"});
  EXPECT_EQ(Result.Out, "invalid  [1,2]\ninvalid  {3}\ninvalid  show\ninvalid  eval\ninvalid  ++\n");
}

TEST_F(Arguments, EmptyTextsAreKept) {
  EXPECT_EQ(RunCommand({"check", "0", "", "1"}).Out, "invalid  \nvalid    1\n");
}

TEST_F(Arguments, OptionsStandAnywhere) {
  const std::string Settings = Path("UnitConfig.xml");
  EXPECT_EQ(OutputOf({"--system", "2", "format", "0", "1676.4"}), "1676\n");
  EXPECT_EQ(OutputOf({"format", "0", "1676.4", "--system=2"}), "1676\n");
  EXPECT_EQ(OutputOf({"format", "0", "--system", "Standard Metric System", "1676.4", "--settings", Settings}),
            "1676\n");
  EXPECT_EQ(OutputOf({"format", "0", "--scale=3", "1.6764"}), "5' 6\"\n");
}

struct TRefusal {
  const char* Name;
  std::vector<std::string> Arguments;
  std::string Message;
};

class Refused : public TUnitctl, public ::testing::WithParamInterface<TRefusal> {};

TEST_P(Refused, SaysWhatIsWrong) {
  const TRunResult Result = RunCommand(GetParam().Arguments);
  EXPECT_EQ(Result.Status, 1);
  EXPECT_EQ(Result.Out, "");
  EXPECT_EQ(Result.Err, "unitctl: " + GetParam().Message + "\n");
}

const TRefusal Refusals[] = {
    {"NoCommand", {}, "a command is needed: unitctl --help lists them"},
    {"UnknownCommand", {"shwo"}, "unknown command \"shwo\"; the nearest is show"},
    {"UnknownSubcommand", {"elev", "stroe", "1"}, "unknown command \"stroe\"; the nearest is store"},
    {"UnknownOption",
     {"format", "--no-simbol", "0", "1"},
     "unknown option --no-simbol; the nearest is --no-symbol (a text that begins so goes behind a lone --)"},
    {"OptionWithoutValue",
     {"format", "0", "1", "--scale"},
     "option --scale needs a value (see format --help)"},
    {"FlagWithValue", {"format", "--no-round=x", "0", "1"}, "option --no-round takes no value"},
    {"MissingMeasure", {"format"}, "MEASURE is required (--help tells more)"},
    {"MissingValue", {"format", "0"}, "VALUE is required (--help tells more)"},
    {"UnknownMeasure",
     {"format", "Lenght", "1"},
     "no measure \"Lenght\"; the nearest is \"Length (Basic Information)\""},
    {"UnknownCode",
     {"format", "8", "1"},
     "no measure with the number 8; the nearest is 7, \"Length (Calculation Result)\""},
    {"UnknownSystem",
     {"use", "US Imperial"},
     "no unit system \"US Imperial\"; the nearest is \"US Imperial System\""},
    {"UnknownSystemNumber",
     {"--system", "4", "show"},
     "no unit system with the number 4; the nearest is 3, \"Taiwan Metric System\""},
    {"UnknownUnit",
     {"set", "Area", "--unit", "Square metres"},
     "no unit \"Square metres\" in \"Area\"; the nearest is \"Square meters\""},
    {"UnknownRounding",
     {"set", "Area", "--round", "3 decimals"},
     "no rounding \"3 decimals\" in \"Square feet\"; the nearest is \"3 decimal places\""},
    {"NoSymbolToChoose",
     {"set", "0", "--symbol", "ft"},
     "no symbol \"ft\" in \"Feet and fractional inches\"; there is none to choose from"},
    {"UnknownGrouping",
     {"group", "123,456"},
     "no digit grouping \"123,456\"; the nearest is \"123,456,789.00\""},
    {"NothingToSet",
     {"set", "Area"},
     "nothing to set: give --unit, --round, --increment, --symbol or --check"},
};

INSTANTIATE_TEST_SUITE_P(Rows, Refused, ::testing::ValuesIn(Refusals),
                         [](const auto& Info) { return Info.param.Name; });

TEST_F(Arguments, HelpOfEachCommandHasAnExample) {
  for (const char* Command : {"init", "show", "use", "set", "group", "reset", "format", "parse", "check",
                              "schedule", "compare", "eval", "elev", "expr"}) {
    const std::string Help = OutputOf({Command, "--help"});
    EXPECT_NE(Help.find("Example:\n  unitctl " + std::string(Command)), std::string::npos) << Command;
  }
  for (const char* Command : {"store", "edit", "display", "check"}) {
    const std::string Help = OutputOf({"elev", Command, "--help"});
    EXPECT_NE(Help.find("Example:\n  unitctl elev " + std::string(Command)), std::string::npos) << Command;
  }
  EXPECT_EQ(OutputOf({"help", "elev", "store"}), OutputOf({"elev", "store", "--help"}));
  EXPECT_EQ(OutputOf({"help"}), OutputOf({"--help"}));
  EXPECT_NE(OutputOf({"--help"}).find("Exit status: 0"), std::string::npos);
}

} // namespace
} // namespace unitlib::test
