/// schedule, compare.
#include "tests/apps/UnitctlRun.h"

#include "unitlib/rtl/Text.h"

namespace unitlib::test {
namespace {

/// "US Imperial System": lengths in feet and inches to 1/32", areas in square feet, three decimals.
class Schedule : public TUnitctl {};

struct TGoodRow {
  const char* Name;
  std::vector<std::string> Options;
  std::string Input;
  std::string Output;
};

class GoodSchedule : public TUnitctl, public ::testing::WithParamInterface<TGoodRow> {};

TEST_P(GoodSchedule, GivesTheOutput) {
  std::vector<std::string> Arguments = {"schedule"};
  Arguments.insert(Arguments.end(), GetParam().Options.begin(), GetParam().Options.end());
  EXPECT_EQ(OutputOf(Arguments, GetParam().Input), GetParam().Output);
}

// 1676.4 mm are 66 inches; 92903.04 mm2 are one square foot, 1000 of them 92903040 mm2.
const TGoodRow GoodRows[] = {
    {"QuotesTheText", {}, "measure,value\n0,1676.4\n", "measure,value,display\n0,1676.4,\"5' 6\"\"\"\n"},
    {"QuotesGroupedDigits",
     {},
     "measure,value\n1,92903040\n",
     "measure,value,display\n1,92903040,\"1,000.000\"\n"},
    {"FindsColumnsByName",
     {},
     "value,item,measure\n92903.04,slab,1\n",
     "value,item,measure,display\n92903.04,slab,1,1.000\n"},
    {"MeasuresByDescription",
     {},
     "measure,value\nArea,92903.04\narea,92903.04\n",
     "measure,value,display\nArea,92903.04,1.000\narea,92903.04,1.000\n"},
    {"BlanksAroundCells",
     {},
     "measure,value\n 1 , 92903.04 \n",
     "measure,value,display\n 1 , 92903.04 ,1.000\n"},
    {"KeepsQuotesOfTheInput",
     {},
     "item,measure,value\n\"a, \"\"b\"\"\nc\",\"1\",\"92903.04\"\n",
     "item,measure,value,display\n\"a, \"\"b\"\"\nc\",\"1\",\"92903.04\",1.000\n"},
    {"KeepsWindowsLineEnds",
     {},
     "measure,value\r\n1,92903.04\r\n",
     "measure,value,display\r\n1,92903.04,1.000\r\n"},
    {"KeepsTheUtf8Mark",
     {},
     "\xEF\xBB\xBFmeasure,value\n1,92903.04\n",
     "\xEF\xBB\xBFmeasure,value,display\n1,92903.04,1.000\n"},
    {"EndsTheLastLine", {}, "measure,value\n1,92903.04", "measure,value,display\n1,92903.04,1.000\n"},
    {"KeepsEmptyLines",
     {},
     "measure,value\n\n1,92903.04\n\n",
     "measure,value,display\n\n1,92903.04,1.000\n\n"},
    {"HeaderOnly", {}, "measure,value\n", "measure,value,display\n"},
    {"KeepsBytesThatAreNoUtf8",
     {},
     "item,measure,value\n\xC4,1,92903.04\n",
     "item,measure,value,display\n\xC4,1,92903.04,1.000\n"},
    {"QuotedHeader",
     {},
     "\"measure\",\"value\"\n1,92903.04\n",
     "\"measure\",\"value\",display\n1,92903.04,1.000\n"},
    {"OtherColumnNames",
     {"--measure-column", "code", "--value-column", "amount", "--display-column", "shown, so"},
     "code,amount\n1,92903.04\n",
     "code,amount,\"shown, so\"\n1,92903.04,1.000\n"},
    {"OneMeasureForAllRows", {"--measure", "Area"}, "value\n92903.04\n", "value,display\n92903.04,1.000\n"},
    {"FormatOptions",
     {"--no-group", "--append-symbol", "--scale", "4"},
     "measure,value\n1,92.90304\n",
     "measure,value,display\n1,92.90304,1000.000 SF\n"},
    {"OtherSystem", {"--system", "2"}, "measure,value\n0,1676.4\n", "measure,value,display\n0,1676.4,1676\n"},
    {"StandardInputByName",
     {"-"},
     "measure,value\n1,92903.04\n",
     "measure,value,display\n1,92903.04,1.000\n"},
    {"Table",
     {"--table"},
     "item,measure,value\n\xE6\xB7\xB7\xE5\x87\x9D,0,1676.4\nslab,1,92903040\n",
     "item  measure     value    display\n"
     "----  -------  --------  ---------\n"
     "\xE6\xB7\xB7\xE5\x87\x9D  0          1676.4      5' 6\"\n"
     "slab  1        92903040  1,000.000\n"},
};

INSTANTIATE_TEST_SUITE_P(Rows, GoodSchedule, ::testing::ValuesIn(GoodRows),
                         [](const auto& Info) { return Info.param.Name; });

struct TBadRow {
  const char* Name;
  std::string Row;
  std::string Kept;
  std::string Message;
};

class BadRow : public TUnitctl, public ::testing::WithParamInterface<TBadRow> {};

TEST_P(BadRow, IsReportedAndKeptWithAnEmptyText) {
  const std::string File =
      WriteFile("in.csv", "item,measure,value\na,1,92903.04\n" + GetParam().Row + "b,1,185806.08\n");
  const TRunResult Result = RunCommand({"schedule", File});
  EXPECT_EQ(Result.Status, 2);
  EXPECT_EQ(Result.Out,
            "item,measure,value,display\na,1,92903.04,1.000\n" + GetParam().Kept + "b,1,185806.08,2.000\n");
  EXPECT_EQ(Result.Err, File + ":3: " + GetParam().Message + "\nunitctl: 1 of 3 rows bad\n");
}

const TBadRow BadRows[] = {
    {"NoNumber", "x,1,12x\n", "x,1,12x,\n", "column \"value\": \"12x\" is not a number\n  12x\n    ^"},
    {"EmptyValue", "x,1,\n", "x,1,,\n", "column \"value\": \"\" is empty where a number should be"},
    {"NotANumber", "x,1,nan\n", "x,1,nan,\n", "column \"value\": \"nan\" is not a number\n  nan\n  ^"},
    {"OutOfRange", "x,1,1e400\n", "x,1,1e400,\n",
     "column \"value\": \"1e400\" is beyond the range of numbers"},
    {"GroupedNumber", "x,1,\"1,234\"\n", "x,1,\"1,234\",\n",
     "column \"value\": \"1,234\" is not a number\n  1,234\n   ^"},
    {"GroupedNumberWithoutQuotes", "x,1,1,234\n", "x,1,1,,234\n", "the row has 4 fields, the header 3"},
    {"MissingField", "x,1\n", "x,1,,\n", "the row has 2 fields, the header 3"},
    {"UnknownMeasure", "x,8,1\n", "x,8,1,\n",
     "no measure with the number 8; the nearest is 7, \"Length (Calculation Result)\""},
    {"NoMeasure", "x,-1,1\n", "x,-1,1,\n",
     "no measure with the number -1; the nearest is 0, \"Length (Basic Information)\""},
    {"EmptyMeasure", "x,,1\n", "x,,1,\n", "no measure \"\"; the nearest is \"Area\""},
    {"MalformedMeasure", "x,\xFF,1\n", "x,\xFF,1,\n", "Not well-formed UTF-8: \\xFF"},
    {"TextBehindAQuote", "x,1,\"1\"2\n", "x,1,12,\n", "text stands behind a closing quote"},
    {"ControlCharacters", "x,1,\x1B[2J\n", "x,1,\x1B[2J,\n",
     "column \"value\": \"\\x1B[2J\" is not a number\n  \\x1B[2J\n  ^"},
    {"NulByte", std::string("x,1,1\0\n", 7), std::string("x,1,1\0,\n", 8),
     "column \"value\": \"1\\x00\" is not a number\n  1\\x00\n   ^"},
};

INSTANTIATE_TEST_SUITE_P(Rows, BadRow, ::testing::ValuesIn(BadRows),
                         [](const auto& Info) { return Info.param.Name; });

TEST_F(Schedule, CountsLinesThroughQuotedLineBreaks) {
  const TRunResult Result = RunCommand({"schedule"}, "item,measure,value\n\"a\nb\nc\",1,1\nd,1,x\n");
  EXPECT_EQ(Result.Err.substr(0, 18), "standard input:5: ") << Result.Err;
}

TEST_F(Schedule, AnUnclosedQuoteIsToldWithAllItTook) {
  const TRunResult Result = RunCommand({"schedule"}, "item,measure,value\na,1,92903.04\n\"b,1,2\nc,1,3\n");
  EXPECT_EQ(Result.Status, 2);
  EXPECT_EQ(Result.Out, "item,measure,value,display\na,1,92903.04,1.000\n\"b,1,2\nc,1,3\n\",,,\n");
  EXPECT_EQ(
      Result.Err,
      "standard input:3: a quote is not closed before the end of the file: everything down to line 5 was "
      "taken for one row\nunitctl: 1 of 2 rows bad\n");
}

TEST_F(Schedule, ValueTooLargeForFractionalInchesIsABadRow) {
  const TRunResult Result = RunCommand({"schedule"}, "measure,value\n0,1e300\n");
  EXPECT_EQ(Result.Status, 2);
  EXPECT_EQ(Result.Out, "measure,value,display\n0,1e300,\n");
}

struct TRefusedRow {
  const char* Name;
  std::vector<std::string> Options;
  std::string Input;
  std::string Message;
};

class RefusedSchedule : public TUnitctl, public ::testing::WithParamInterface<TRefusedRow> {};

TEST_P(RefusedSchedule, WritesNothing) {
  WriteFile("out.csv", "old");
  std::vector<std::string> Arguments = {"schedule", "-o", Path("out.csv")};
  Arguments.insert(Arguments.end(), GetParam().Options.begin(), GetParam().Options.end());
  const TRunResult Result = RunCommand(Arguments, GetParam().Input);
  EXPECT_EQ(Result.Status, 1);
  EXPECT_EQ(Result.Out, "");
  EXPECT_EQ(Result.Err, "unitctl: " + GetParam().Message + "\n");
  EXPECT_EQ(ReadFile("out.csv"), "old");
}

const TRefusedRow RefusedRows[] = {
    {"EmptyFile", {}, "", "standard input:1: a header row is needed, with the names of the columns"},
    {"EmptyFirstLine",
     {},
     "\nmeasure,value\n",
     "standard input:1: a header row is needed, with the names of the columns"},
    {"NoMeasureColumn",
     {},
     "measures,value\n1,1\n",
     "standard input:1: no column \"measure\"; the nearest is \"measures\""},
    {"NoHeader", {}, "1,92903.04\n", "standard input:1: no column \"value\"; the nearest is \"1\""},
    {"WrongColumn",
     {"--value-column", "valu"},
     "measure,value\n",
     "standard input:1: no column \"valu\"; the nearest is \"value\""},
    {"ColumnTwice",
     {},
     "measure,value,value\n",
     "standard input:1: the column \"value\" occurs twice; which one is meant?"},
    {"DisplayThereAlready",
     {},
     "measure,value,display\n",
     "standard input:1: there is a column \"display\" already; name the new one with --display-column"},
    {"Utf16", {}, std::string("\xFF\xFEm\0e\0", 6), "standard input: this is UTF-16; save it as UTF-8"},
    {"OpenQuoteInHeader",
     {},
     "\"measure,value\n1,1\n",
     "standard input:1: the quotes of the header row do not match"},
    {"UnknownMeasure",
     {"--measure", "99"},
     "value\n1\n",
     "no measure with the number 99; the nearest is 7, \"Length "
     "(Calculation Result)\""},
};

INSTANTIATE_TEST_SUITE_P(Rows, RefusedSchedule, ::testing::ValuesIn(RefusedRows),
                         [](const auto& Info) { return Info.param.Name; });

TEST_F(Schedule, WritesAFile) {
  const std::string In = WriteFile("in.csv", "measure,value\n1,92903.04\n");
  EXPECT_EQ(OutputOf({"schedule", In, "-o", Path("out.csv")}), "");
  EXPECT_EQ(ReadFile("out.csv"), "measure,value,display\n1,92903.04,1.000\n");
  EXPECT_EQ(OutputOf({"schedule", In, "--output=" + In}), ""); // over its own input
  EXPECT_EQ(ReadFile("in.csv"), "measure,value,display\n1,92903.04,1.000\n");
}

TEST_F(Schedule, StrictLeavesTheOutputFileAsItWas) {
  WriteFile("out.csv", "old");
  const std::string In = WriteFile("in.csv", "measure,value\n1,1\n1,x\n1,y\n");
  const TRunResult Result = RunCommand({"schedule", "--strict", In, "-o", Path("out.csv")});
  EXPECT_EQ(Result.Status, 2);
  EXPECT_EQ(
      Result.Err,
      In + ":3: column \"value\": \"x\" is not a number\n  x\n  ^\nunitctl: stopped at the first bad row; " +
          Path("out.csv") + " is not written\n");
  EXPECT_EQ(ReadFile("out.csv"), "old");
  EXPECT_EQ(RunCommand({"schedule", "--strict", In, "-o", Path("new.csv")}).Status, 2);
  EXPECT_FALSE(Exists("new.csv"));
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(Folders.Root()), {}),
            4); // no temporary file: docs, xml, in, out
}

TEST_F(Schedule, StrictStopsTheStreamBeforeTheBadRow) {
  const TRunResult Result = RunCommand({"schedule", "--strict"}, "measure,value\n1,92903.04\n1,x\n1,1\n");
  EXPECT_EQ(Result.Status, 2);
  EXPECT_EQ(Result.Out, "measure,value,display\n1,92903.04,1.000\n");
}

TEST_F(Schedule, MissingFileAndFolder) {
  TRunResult Result = RunCommand({"schedule", Path("no.csv")});
  EXPECT_EQ(Result.Status, 1);
  EXPECT_EQ(Result.Err, "unitctl: " + Path("no.csv") + ": Cannot be read: No such file or directory\n");
  Result = RunCommand({"schedule", Path("docs")});
  EXPECT_EQ(Result.Status, 1);
  EXPECT_EQ(Result.Err.find("unitctl: " + Path("docs") + ": Cannot be read: "), 0U);
}

TEST_F(Schedule, EmptyNamesAreNotStandardStreams) {
  const TRunResult Input = RunCommand({"schedule", ""}, "measure,value\n");
  EXPECT_EQ(Input.Status, 1);
  EXPECT_EQ(Input.Err, "unitctl: the name of the input file is empty; \"-\" stands for standard input\n");
  const TRunResult Output = RunCommand({"schedule", "-o", ""}, "measure,value\n");
  EXPECT_EQ(Output.Status, 1);
  EXPECT_EQ(Output.Err, "unitctl: --output needs the name of a file\n");
  EXPECT_EQ(Output.Out, "");
}

TEST_F(Schedule, ARowThatDoesNotEndIsRefusedBeforeItFillsTheMemory) {
  WriteFile("out.csv", "old");
  const std::string Input = "measure,value\n1,1\n1,\"" + std::string(std::size_t{18} << 20, 'x');
  const TRunResult Result = RunCommand({"schedule", "-o", Path("out.csv")}, Input);
  EXPECT_EQ(Result.Status, 1);
  EXPECT_EQ(Result.Err,
            "unitctl: standard input:3: the row that starts here is larger than 16777216 bytes; is a quote "
            "not closed?\n");
  EXPECT_EQ(ReadFile("out.csv"), "old");
}

TEST_F(Schedule, OutputFolderMissing) {
  const TRunResult Result = RunCommand({"schedule", "-o", Path("no/out.csv")}, "measure,value\n");
  EXPECT_EQ(Result.Status, 1);
  EXPECT_EQ(Result.Err,
            "unitctl: " + Path("no/out.csv") + ": Cannot be written: No such file or directory\n");
}

TEST_F(Schedule, ManyRowsOverManyBatches) {
  std::string In = "item,measure,value\n";
  std::string Expected = "item,measure,value,display\n";
  for (int I = 0; I < 40000; ++I) { // about 1.2 MB, several batches
    const std::string Row = "\"row\n" + std::to_string(I) + "\",Area,92903.04";
    In += Row + "\n";
    Expected += Row + ",1.000\n";
  }
  EXPECT_EQ(OutputOf({"schedule"}, In), Expected);
}

/// Long enough for several threads; most rows without quotes, some with them, with a line break or bad.
TEST_F(Schedule, ManyRowsOfEveryKindOnAllProcessors) {
  std::string In = "item,measure,value\n", Expected = "item,measure,value,display\n", Errors;
  int Line = 2;
  for (int I = 0; I < 200'000; ++I, ++Line) {
    const std::string Name = std::to_string(I) + ", a long name to fill the file";
    if (I % 1009 == 1008) {
      const std::string Row = "\"" + Name + "\n5'\",Area,92903.04";
      In += Row + "\r\n";
      Expected += Row + ",1.000\n";
      ++Line;
    } else if (I % 30'011 == 5) {
      In += std::to_string(I) + ",Area,12x\n";
      Expected += std::to_string(I) + ",Area,12x,\n";
      Errors += Path("in.csv") + ":" + std::to_string(Line) +
                ": column \"value\": \"12x\" is not a number\n  12x\n    ^\n";
    } else {
      const std::string Row = std::to_string(I) + " a name to fill the file,Area,185806.08";
      In += Row + (I % 7 == 0 ? "\r\n" : "\n");
      Expected += Row + ",2.000\n";
    }
  }
  const std::string File = WriteFile("in.csv", In);
  ASSERT_GT(In.size(), std::size_t{4} << 20);
  const TRunResult Result = RunCommand({"schedule", File});
  EXPECT_EQ(Result.Status, 2);
  EXPECT_TRUE(Result.Out == Expected);
  EXPECT_EQ(Result.Err, Errors + "unitctl: 7 of 200000 rows bad\n");
}

TEST_F(Schedule, CompareShowsAllSystems) {
  EXPECT_EQ(OutputOf({"compare"}, "item,measure,value\nslab,1,92903040\nwall,0,1676.4\n"),
            "item  US Imperial System  UK Imperial System  Standard Metric System  Taiwan Metric System\n"
            "----  ------------------  ------------------  ----------------------  --------------------\n"
            "slab        1,000.000 SF        1,000.000 SF               92.903 m2             92.903 m2\n"
            "wall               5' 6\"               5' 6\"                 1676 mm              167.6 cm\n");
}

TEST_F(Schedule, CompareReportsBadRows) {
  const TRunResult Result = RunCommand({"compare"}, "item,measure,value\nslab,1,x\nshort\n");
  EXPECT_EQ(Result.Status, 2);
  EXPECT_NE(Result.Err.find("unitctl: standard input:2: column \"value\": \"x\" is not a number\n"),
            std::string::npos);
  EXPECT_NE(Result.Err.find("unitctl: standard input:3: the row does not fit the header\n"),
            std::string::npos);
}

} // namespace
} // namespace unitlib::test
