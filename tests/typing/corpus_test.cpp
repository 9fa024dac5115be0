/// Spellings worked out by hand, from tests/typing/corpus: each is read as its value or refused for its
/// reason.
#include "tests/support/Settings.h"
#include "tests/typing/TypedFields.h"
#include "unitlib/rtl/Text.h"

#include <gmock/gmock.h>

#include <cmath>
#include <fstream>
#include <sstream>
#include <vector>

namespace unitlib::test {
namespace {

struct TRow {
  std::string Place; // file and line
  const TFieldRow* Field = nullptr;
  TTypedOptions Options;
  std::string Spelling;
  std::string Expected;
  std::string Source;
};

std::string Trimmed(const std::string& Text) {
  const std::size_t First = Text.find_first_not_of(' ');
  return First == std::string::npos ? "" : Text.substr(First, Text.find_last_not_of(' ') - First + 1);
}

/// "\u2013" and "\t" as the characters that they stand for.
std::u16string Unescaped(const std::string& Text) {
  std::u16string Result;
  const std::u16string Escaped = FromUtf8(Text);
  for (std::size_t I = 0; I < Escaped.size(); ++I) {
    if (Escaped.substr(I, 2) == u"\\t") {
      Result += u'\t';
      ++I;
    } else if (Escaped.substr(I, 2) == u"\\u") {
      Result += static_cast<char16_t>(std::stoi(ToUtf8(Escaped.substr(I + 2, 4)), nullptr, 16));
      I += 5;
    } else {
      Result += Escaped[I];
    }
  }
  return Result;
}

/// "[feet-inches sum comma]".
void ReadHeading(const std::string& Line, TRow& Row) {
  std::istringstream Words(Line.substr(1, Line.size() - 2));
  std::string Word;
  Words >> Word;
  Row.Field = FindField(Word);
  Row.Options = {};
  while (Words >> Word) {
    if (Word == "sum") Row.Options.Kind = TTypedKind::Expression;
    if (Word == "comma") Row.Options.DecimalComma = true;
    if (Word == "all") Row.Options.Languages = tlAll;
  }
}

void ReadFile(const std::string& Name, std::vector<TRow>& Rows) {
  std::ifstream File(test::SourceFile("tests/typing/corpus/" + Name + ".txt"));
  ASSERT_TRUE(File) << Name;
  TRow Row;
  std::string Line;
  for (int Number = 1; std::getline(File, Line); ++Number) {
    Row.Place = Name + ":" + std::to_string(Number);
    if (Line.empty() || Line[0] == '#') continue;
    if (Line[0] == '[') {
      ReadHeading(Line, Row);
      ASSERT_NE(Row.Field, nullptr) << Row.Place;
      continue;
    }
    const std::size_t First = Line.find(" | "), Second = Line.find(" | ", First + 3);
    ASSERT_NE(Second, std::string::npos) << Row.Place;
    Row.Spelling = Trimmed(Line.substr(0, First));
    Row.Expected = Trimmed(Line.substr(First + 3, Second - First - 3));
    Row.Source = Trimmed(Line.substr(Second + 3));
    EXPECT_FALSE(Row.Source.empty()) << Row.Place;
    Rows.push_back(Row);
  }
}

void ExpectValue(const TRow& Row, const TTypedReading& Reading) {
  std::istringstream Words(Row.Expected);
  double Value = 0;
  std::string Unit;
  Words >> Value >> Unit;
  ASSERT_FALSE(Unit.empty()) << Row.Place;
  if (Unit == "in") Value *= 25.4;
  ASSERT_TRUE(Reading.Accepted) << ToUtf8(Reading.Reason);
  ASSERT_TRUE(Reading.HasValue);
  EXPECT_NEAR(Reading.StoreValue, Value, 1e-12 * std::abs(Value));
  EXPECT_FALSE(Reading.Understood.empty());
}

void ExpectReading(const TRow& Row) {
  SCOPED_TRACE(Row.Place + ": " + Row.Spelling + " -> " + Row.Expected);
  UseField(*Row.Field);
  const TTypedReading Reading = ReadTyped(Row.Field->Measure, Unescaped(Row.Spelling), Row.Options);
  if (Row.Expected.starts_with("refused ")) {
    EXPECT_FALSE(Reading.Accepted) << "read as " << Reading.StoreValue << ", " << ToUtf8(Reading.Understood);
    EXPECT_EQ(ToUtf8(TypedProblemName(Reading.Problem)), Row.Expected.substr(8));
    EXPECT_FALSE(Reading.Reason.empty());
  } else if (Row.Expected.starts_with("text ")) {
    EXPECT_EQ(ToUtf8(Reading.Rewritten), Row.Expected.substr(5)) << ToUtf8(Reading.Reason);
    EXPECT_FALSE(Reading.HasValue);
  } else {
    ExpectValue(Row, Reading);
  }
}

class TypedCorpus : public TFactorySettings, public ::testing::WithParamInterface<const char*> {};

TEST_P(TypedCorpus, IsReadOrRefused) {
  std::vector<TRow> Rows;
  ReadFile(GetParam(), Rows);
  EXPECT_GE(Rows.size(), 100U);
  for (const TRow& Row : Rows) ExpectReading(Row);
}

INSTANTIATE_TEST_SUITE_P(Files, TypedCorpus,
                         ::testing::Values("single_imperial", "single_metric", "expressions"),
                         [](const auto& Info) { return std::string(Info.param); });

} // namespace
} // namespace unitlib::test
