#include "apps/common/CsvReader.h"
#include "apps/common/CsvWriter.h"
#include "unitlib/rtl/Errors.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace unitlib::app {
namespace {

/// Hands out a text in pieces of at most Piece bytes.
class TPieces final : public TByteSource {
public:
  TPieces(std::string Text, std::size_t Piece) : FText(std::move(Text)), FPiece(Piece) {}
  std::size_t Read(char* Buffer, std::size_t Size) override {
    const std::size_t Count = std::min({Size, FPiece, FText.size() - FNext});
    FText.copy(Buffer, Count, FNext);
    FNext += Count;
    return Count;
  }

private:
  std::string FText;
  std::size_t FPiece;
  std::size_t FNext = 0;
};

using TRows = std::vector<std::vector<std::string>>;

struct TReadResult {
  TRows Rows;
  std::vector<std::uint64_t> Lines;
  bool OpenQuote = false;
  bool WellFormed = true;
  bool Mark = false;
};

TReadResult ReadAll(const std::string& Text, std::size_t Piece) {
  TPieces Source(Text, Piece);
  TCsvReader Reader(Source);
  TCsvRecord Record;
  TCsvFields Fields;
  TReadResult Result;
  while (Reader.Next(Record)) {
    Result.WellFormed = Fields.Split(Record.Raw) && Result.WellFormed;
    Result.Rows.emplace_back(Fields.All().begin(), Fields.All().end());
    Result.Lines.push_back(Record.Line);
    Result.OpenQuote = Record.OpenQuote;
  }
  Result.Mark = Reader.HadMark();
  return Result;
}

/// The same, and records without quotes taken in one piece of at most Most bytes where they are there.
TReadResult ReadPlain(const std::string& Text, std::size_t Piece, std::size_t Most) {
  TPieces Source(Text, Piece);
  TCsvReader Reader(Source);
  TCsvRecord Record;
  TCsvFields Fields;
  TReadResult Result;
  const auto Add = [&](std::string_view Raw, std::uint64_t Line) {
    Fields.Split(Raw);
    Result.Rows.emplace_back(Fields.All().begin(), Fields.All().end());
    Result.Lines.push_back(Line);
  };
  while (Reader.Next(Record)) {
    Add(Record.Raw, Record.Line);
    std::uint64_t Line = Reader.Line();
    std::string_view Plain = Reader.NextPlainRecords(Most);
    EXPECT_LE(Plain.size(), Most);
    for (; !Plain.empty(); ++Line) {
      const std::size_t Size = Plain.find('\n');
      EXPECT_NE(Size, std::string_view::npos) << "whole records";
      Add(Plain.substr(0, Size - (Size > 0 && Plain[Size - 1] == '\r')), Line);
      Plain.remove_prefix(Size + 1);
    }
    EXPECT_EQ(Reader.Line(), Line);
  }
  return Result;
}

struct TReadRow {
  const char* Name;
  std::string Text;
  TRows Expected;
  std::vector<std::uint64_t> Lines;
};

class CsvRead : public ::testing::TestWithParam<TReadRow> {};

TEST_P(CsvRead, GivesTheFieldsWhateverThePiecesItArrivesIn) {
  for (const std::size_t Piece : {1, 2, 3, 7, 1000}) {
    const TReadResult Result = ReadAll(GetParam().Text, Piece);
    EXPECT_EQ(Result.Rows, GetParam().Expected) << "pieces of " << Piece;
    EXPECT_EQ(Result.Lines, GetParam().Lines) << "pieces of " << Piece;
  }
}

TEST_P(CsvRead, GivesTheSameInPlainRecords) {
  for (const std::size_t Piece : {1, 3, 7, 1000})
    for (const std::size_t Most : {1, 2, 5, 1000}) {
      const TReadResult Result = ReadPlain(GetParam().Text, Piece, Most);
      EXPECT_EQ(Result.Rows, GetParam().Expected) << "pieces of " << Piece << ", at most " << Most;
      EXPECT_EQ(Result.Lines, GetParam().Lines) << "pieces of " << Piece << ", at most " << Most;
    }
}

const TReadRow ReadRows[] = {
    {"Empty", "", {}, {}},
    {"OneLine", "a,b\n", {{"a", "b"}}, {1}},
    {"NoLineEndAtTheEnd", "a,b\nc,d", {{"a", "b"}, {"c", "d"}}, {1, 2}},
    {"CarriageReturns", "a,b\r\nc,d\r\n", {{"a", "b"}, {"c", "d"}}, {1, 2}},
    {"LoneCarriageReturnIsData", "a\rb,c\n", {{"a\rb", "c"}}, {1}},
    {"EmptyFields", ",,\n", {{"", "", ""}}, {1}},
    {"EmptyLine", "a\n\nb\n", {{"a"}, {""}, {"b"}}, {1, 2, 3}},
    {"QuotedComma", "\"a,b\",c\n", {{"a,b", "c"}}, {1}},
    {"DoubledQuotes", "\"5' 6\"\"\",\"\"\"\",x\n", {{"5' 6\"", "\"", "x"}}, {1}},
    {"EmptyQuotes", "\"\",a\n", {{"", "a"}}, {1}},
    {"LineBreakInQuotes", "\"a\nb\",c\nd,e\n", {{"a\nb", "c"}, {"d", "e"}}, {1, 3}},
    {"WindowsLineBreakInQuotes", "\"a\r\nb\",c\r\nd,e\r\n", {{"a\r\nb", "c"}, {"d", "e"}}, {1, 3}},
    {"InchMarkWithoutQuotes", "wall,5'6\",0\nx,y,z\n", {{"wall", "5'6\"", "0"}, {"x", "y", "z"}}, {1, 2}},
    {"Utf8Mark",
     "\xEF\xBB\xBF"
     "a,b\n",
     {{"a", "b"}},
     {1}},
    {"MarkOnly", "\xEF\xBB\xBF", {}, {}},
    {"HalfAMarkIsData", "\xEF\xBB", {{"\xEF\xBB"}}, {1}},
    {"NulBytes", std::string("a\0b,c\n", 6), {{std::string("a\0b", 3), "c"}}, {1}},
};

INSTANTIATE_TEST_SUITE_P(Rows, CsvRead, ::testing::ValuesIn(ReadRows),
                         [](const auto& Info) { return Info.param.Name; });

TEST(CsvReader, TellsAnOpenQuote) {
  const TReadResult Result = ReadAll("a,\"b\nc,d\n", 1000);
  EXPECT_EQ(Result.Rows, (TRows{{"a", "b\nc,d\n"}}));
  EXPECT_TRUE(Result.OpenQuote);
  EXPECT_FALSE(Result.WellFormed);
}

TEST(CsvReader, TellsTextBehindAClosingQuote) {
  const TReadResult Result = ReadAll("\"a\"b,c\n", 1000);
  EXPECT_EQ(Result.Rows, (TRows{{"ab", "c"}}));
  EXPECT_FALSE(Result.WellFormed);
}

TEST(CsvReader, TellsTheMark) {
  EXPECT_TRUE(ReadAll("\xEF\xBB\xBFx\n", 1).Mark);
  EXPECT_FALSE(ReadAll("x\n", 1).Mark);
}

TEST(CsvReader, KeepsRawRowAndLineEnd) {
  TPieces Source("\"a\",b\r\nc\n", 1000);
  TCsvReader Reader(Source);
  TCsvRecord Record;
  ASSERT_TRUE(Reader.Next(Record));
  EXPECT_EQ(Record.Raw, "\"a\",b");
  EXPECT_EQ(Record.LineEnd, "\r\n");
  ASSERT_TRUE(Reader.Next(Record));
  EXPECT_EQ(Record.Raw, "c");
  EXPECT_EQ(Record.LineEnd, "\n");
}

TEST(CsvReader, RefusesARecordThatDoesNotEnd) {
  TPieces Source("a\n\"" + std::string(1000000, 'x'), 1000000);
  TCsvReader Reader(Source, 1000);
  TCsvRecord Record;
  ASSERT_TRUE(Reader.Next(Record));
  EXPECT_THROW(while (Reader.Next(Record)){}, EConvertError);
}

TEST(CsvReader, BufferedRowsNeedNoReading) {
  TPieces Source("a\nb\nc", 4);
  TCsvReader Reader(Source);
  TCsvRecord Record;
  EXPECT_FALSE(Reader.NextBuffered(Record));
  ASSERT_TRUE(Reader.Next(Record));
  ASSERT_TRUE(Reader.NextBuffered(Record));
  EXPECT_EQ(Record.Raw, "b");
  EXPECT_FALSE(Reader.NextBuffered(Record));
}

TEST(CsvReader, PlainRecordsEndBeforeAQuoteAndAtALineFeed) {
  TPieces Source("head\na\r\n\nbb\nc,5'6\"\nd\ne", 1000);
  TCsvReader Reader(Source);
  TCsvRecord Record;
  EXPECT_EQ(Reader.NextPlainRecords(100), "") << "nothing has been read";
  ASSERT_TRUE(Reader.Next(Record));
  EXPECT_EQ(Reader.NextPlainRecords(2), "") << "the next one is larger";
  EXPECT_EQ(Reader.NextPlainRecords(5), "a\r\n\n");
  EXPECT_EQ(Reader.Line(), 4U);
  EXPECT_EQ(Reader.NextPlainRecords(100), "bb\n");
  EXPECT_EQ(Reader.NextPlainRecords(100), "") << "the next one holds a quote";
  ASSERT_TRUE(Reader.NextBuffered(Record));
  EXPECT_EQ(Record.Raw, "c,5'6\"");
  EXPECT_EQ(Record.Line, 5U);
  EXPECT_EQ(Reader.NextPlainRecords(100), "d\n") << "nobody knows whether the last one is whole";
  ASSERT_TRUE(Reader.Next(Record));
  EXPECT_EQ(Record.Raw, "e");
  EXPECT_EQ(Record.Line, 7U);
}

TEST(CsvReader, CountsTheLinesOfPlainRecords) {
  std::mt19937 Random(20260101);
  for (int Round = 0; Round < 200; ++Round) {
    std::string Text = "head\n";
    for (auto I = Random() % 300; I > 0; --I) Text += "\n\n\x0B\x09\x8A\xFF\x00 a\r"[Random() % 11];
    Text += '\n';
    TPieces Source(Text, Text.size());
    TCsvReader Reader(Source);
    TCsvRecord Record;
    ASSERT_TRUE(Reader.Next(Record));
    EXPECT_EQ(Reader.NextPlainRecords(Text.size()), Text.substr(5));
    EXPECT_EQ(Reader.Line(), 1 + static_cast<std::uint64_t>(std::count(Text.begin(), Text.end(), '\n')));
  }
}

TEST(CsvWriter, QuotesWhereNeeded) {
  const std::pair<std::string, std::string> Rows[] = {
      {"", ""},
      {"plain", "plain"},
      {"5' 6\"", "\"5' 6\"\"\""},
      {"1,234.5", "\"1,234.5\""},
      {"a b", "a b"},
      {"a\nb", "\"a\nb\""},
      {"a\rb", "\"a\rb\""},
      {"\"", "\"\"\"\""},
      {"m\xC2\xB3", "m\xC2\xB3"},
  };
  for (const auto& [Field, Expected] : Rows) {
    std::string Out;
    AppendCsvField(Out, Field);
    EXPECT_EQ(Out, Expected);
  }
}

TEST(CsvWriter, ATextThatStartsLikeAMarkIsNoMarkOfTheFile) {
  std::string Out;
  AppendCsvRecord(Out, {"\xEF\xBB\xBF/"});
  EXPECT_EQ(Out, "\"\xEF\xBB\xBF/\"");
}

TEST(CsvWriter, ASingleEmptyFieldIsNoEmptyLine) {
  std::string Out;
  AppendCsvRecord(Out, {""});
  EXPECT_EQ(Out, "\"\"");
}

TEST(Csv, ReadsBackWhatItWrites) {
  const unsigned Seed = 20261121;
  SCOPED_TRACE(Seed);
  std::mt19937 Random(Seed);
  const std::string Letters = "a,\"\r\n '5\xC3\xA9";
  TRows Rows;
  std::string Text;
  for (int I = 0; I < 2000; ++I) {
    std::vector<std::string>& Row = Rows.emplace_back(1 + Random() % 4);
    for (std::string& Field : Row)
      for (std::size_t N = Random() % 6; N > 0; --N) Field += Letters[Random() % Letters.size()];
    AppendCsvRecord(Text, {Row.begin(), Row.end()});
    Text += Random() % 2 ? "\n" : "\r\n";
  }
  for (const std::size_t Piece : {1, 5, 1000, 10000000}) {
    const TReadResult Result = ReadAll(Text, Piece);
    EXPECT_EQ(Result.Rows, Rows);
    EXPECT_TRUE(Result.WellFormed);
  }
}

} // namespace
} // namespace unitlib::app
