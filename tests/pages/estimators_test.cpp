/// Every row of docs/estimators.md is what the library does. A table is announced by a comment that says what it is about.
#include "tests/support/Settings.h"
#include "unitlib/convert/ZELUnitConvertor.h"
#include "unitlib/expr/ZELUnitArthProcessor.h"
#include "unitlib/model/ZELUnitConfigFileGenerator.h"
#include "unitlib/model/ZELUnitMgr.h"
#include "unitlib/rtl/Numbers.h"
#include "unitlib/rtl/Text.h"
#include "unitlib/typing/ReadTyped.h"

#include <gtest/gtest.h>

#include <cctype>
#include <cmath>
#include <fstream>
#include <regex>
#include <string>
#include <vector>

namespace unitlib {
namespace {

struct TRow {
  std::string About; // the announcement of its table
  int Line = 0;
  std::vector<std::string> Cells; // code spans without their marks
};

std::string CellText(std::string Text) {
  Text = std::regex_replace(Text, std::regex("^ +| +$"), "");
  if (Text.size() >= 2 && Text.front() == '`' && Text.back() == '`') Text = Text.substr(1, Text.size() - 2);
  return Text;
}

std::vector<std::string> CellsOf(const std::string& Line) {
  std::vector<std::string> Cells;
  size_t Start = 1;
  for (size_t Bar = Line.find('|', 1); Bar != std::string::npos; Bar = Line.find('|', Start)) {
    Cells.push_back(CellText(Line.substr(Start, Bar - Start)));
    Start = Bar + 1;
  }
  return Cells;
}

std::vector<TRow> ReadRows() {
  std::vector<TRow> Rows;
  std::ifstream Page(test::SourceFile("docs/estimators.md"));
  std::string About;
  int Number = 0, InTable = 0;
  for (std::string Line; std::getline(Page, Line);) {
    ++Number;
    std::smatch Found;
    if (std::regex_match(Line, Found, std::regex("<!-- table: (.*) -->"))) About = Found[1];
    InTable = Line.starts_with("|") ? InTable + 1 : 0;
    if (InTable > 2) Rows.push_back({About, Number, CellsOf(Line)}); // behind heading and rule
    if (Line.empty() && !Rows.empty() && Rows.back().Line == Number - 1) About.clear();
  }
  return Rows;
}

void PrintTo(const TRow& Row, std::ostream* Out) {
  *Out << "docs/estimators.md:" << Row.Line << ": " << Row.Cells.front();
}

class EstimatorsPage : public testing::TestWithParam<TRow> {
protected:
  EstimatorsPage() {
    GenerateUnitDefaultConfigFile();
    InitialUnitSystem(u"", CYAmInch, false);
  }
  ~EstimatorsPage() override { FreeUnitSystem(); }

  static void Use(int Code, std::u16string_view Unit) {
    TMeasure* Measure = TSystemUnitDataManager::CurConfigMeasure(Code);
    ASSERT_NE(Measure, nullptr);
    Measure->SetCurUnit(Unit);
    ASSERT_EQ(ToUtf8(Measure->GetCurUnit()->Description), ToUtf8(Unit));
  }

  static void CheckTyped(const TRow& Row, int Code, std::u16string_view Unit) {
    Use(Code, Unit);
    const std::u16string Typed = FromUtf8(Row.Cells[0]);
    const bool Refused = Row.Cells[2] == "refused";
    ASSERT_EQ(TMeasureDataManager::CheckDisplay(Code, Typed), !Refused);
    if (Row.Cells.size() > 3) CheckReading(Row, Code, Row.Cells[3]);
    if (Refused) return;
    // The reading of typed texts changes no value; it refuses what people mean in two ways.
    if (ReadTyped(Code, Typed).Accepted) CheckReading(Row, Code, Row.Cells[2]);
    const double Want = StrToFloat(FromUtf8(Row.Cells[2]));
    EXPECT_NEAR(TMeasureDataManager::DisplayToStore(Code, Typed), Want, std::abs(Want) * 1E-14);
  }

  static void CheckReading(const TRow& Row, int Code, const std::string& Expected) {
    const TTypedReading Reading = ReadTyped(Code, FromUtf8(Row.Cells[0]));
    ASSERT_EQ(Reading.Accepted, Expected != "refused")
        << ToUtf8(Reading.Reason) << ToUtf8(Reading.Understood);
    if (!Reading.Accepted) return;
    const double Want = StrToFloat(FromUtf8(Expected));
    EXPECT_NEAR(Reading.StoreValue, Want, std::abs(Want) * 1E-14);
  }

  static void CheckArithmetic(const TRow& Row) {
    TParser Parser(FromUtf8(Row.Cells[0]));
    auto Root = Parser.Parse();
    if (!Parser.FHasError && Root) Parser.Merge(Root);
    const bool Length = !Parser.FHasError && Root && Root->FIsImperial && !Root->FIsVar;
    const double Value = Length ? Parser.GetDoubleValue(*Root) : 0;
    ASSERT_EQ(Length && !Parser.FHasError, Row.Cells[2] != "refused");
    if (!Length) return;
    const double Want = StrToFloat(FromUtf8(Row.Cells[2]));
    EXPECT_NEAR(Value, Want, std::abs(Want) * 1E-14);
  }

  static void CheckElevation(const TRow& Row) {
    const std::u16string Typed = FromUtf8(Row.Cells[0]);
    ASSERT_EQ(CheckElevEditValue(Typed), Row.Cells[1] != "refused");
    if (Row.Cells[1] == "refused") return;
    EXPECT_EQ(ToUtf8(GetElevStoreValue(Typed)), Row.Cells[1]);
    EXPECT_EQ(ToUtf8(GetElevDisplayValue(FromUtf8(Row.Cells[1]))), Row.Cells[2]);
  }

  static void CheckShown(const TRow& Row) {
    const int Code = Row.Cells[0][0] - '0';
    Use(Code, FromUtf8(Row.Cells[0].substr(2)));
    TUnit* Unit = TSystemUnitDataManager::CurConfigMeasure(Code)->GetCurUnit();
    Unit->SetCurRound(FromUtf8(Row.Cells[1]));
    ASSERT_EQ(ToUtf8(Unit->GetCurRound()->Description), Row.Cells[1]);
    EXPECT_EQ(ToUtf8(TMeasureDataManager::StoreToDisplay(Code, StrToFloat(FromUtf8(Row.Cells[2])))),
              Row.Cells[3]);
  }

  test::TPrivateFolders Folders;
};

TEST_P(EstimatorsPage, SaysWhatTheLibraryDoes) {
  const TRow& Row = GetParam();
  std::smatch Found;
  if (std::regex_match(Row.About, Found, std::regex("type measure (\\d) unit (.*)")))
    CheckTyped(Row, std::stoi(Found[1]), FromUtf8(Found.str(2)));
  else if (Row.About == "arithmetic")
    CheckArithmetic(Row);
  else if (Row.About == "elevation")
    CheckElevation(Row);
  else if (Row.About == "show")
    CheckShown(Row);
  else
    FAIL() << "nobody says what this table is about: \"" << Row.About << "\"";
}

INSTANTIATE_TEST_SUITE_P(Rows, EstimatorsPage, testing::ValuesIn(ReadRows()),
                         [](const auto& Info) { return "Line" + std::to_string(Info.param.Line); });

TEST(EstimatorsPageRows, AreAllThere) {
  EXPECT_GE(ReadRows().size(), 90u);
}

} // namespace
} // namespace unitlib
