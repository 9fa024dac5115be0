/// What a reading tells beside its value: words, steps, places, suggestions, scale.
#include "tests/typing/TypedFields.h"
#include "unitlib/convert/ZELUnitConvertor.h"
#include "unitlib/convert/ZELUnitParseRegister.h"
#include "unitlib/expr/ZELUnitArthProcessor.h"
#include "unitlib/model/ZELUnitMgr.h"
#include "unitlib/rtl/Errors.h"

#include <gmock/gmock.h>

#include <utility>

namespace unitlib::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr TTypedOptions Sum{TTypedKind::Expression, -1, false, tlEnglish};

class TypedReadingTest : public TFactorySettings {
protected:
  /// Feet and fractional inches.
  static TTypedReading Read(std::u16string_view Text, const TTypedOptions& Options = {}) {
    return ReadTyped(0, Text, Options);
  }
};

TEST_F(TypedReadingTest, TellsHowATextWasUnderstood) {
  const std::pair<const char16_t*, const char16_t*> Rows[] = {
      {u"10'-6\"", u"10 feet 6 inches, dash read as a separator"},
      {u"-5'6 1/2\"", u"minus 5 feet 6 1/2 inches"},
      {u"1 ft", u"1 foot"},
      {u"½\"", u"1/2 inch"},
      {u"66", u"66 inches"},
      {u"5-6", u"5 feet 6 inches, dash read as a separator"},
      {u"5'6", u"5 feet 6 inches, the last number read as inches"},
      {u"10'6''", u"10 feet 6 inches, two foot marks read as the inch mark"},
      {u"2.5 m", u"2.5 meters"},
      {u"1,234 mm", u"1234 millimeters, digits read in groups"},
  };
  for (const auto& [Text, Words] : Rows) EXPECT_EQ(Read(Text).Understood, Words);
}

TEST_F(TypedReadingTest, TellsWhatWasCalculated) {
  EXPECT_EQ(Read(u"(10')-(6\")", Sum).Understood, u"calculated: 9' 6\"");
  EXPECT_EQ(Read(u"10'/7", Sum).Understood, u"calculated: 435.428571428571 mm, shown as 1' 5 5/32\"");
  EXPECT_EQ(ReadTyped(3, u"L1 - (-5' 6 1/2\")", Sum).Understood, u"L1 plus 5' 6 1/2\"");
}

TEST_F(TypedReadingTest, RewritesIntoTheFacadesGrammar) {
  const std::pair<const char16_t*, const char16_t*> Rows[] = {
      {u"10'-6\"", u"10'6\""}, {u"5.5'", u"5'6\""},    {u"5' 6.5\"", u"5'6 1/2\""},
      {u"6½\"", u"6 1/2\""},   {u"5' 6\"", u"5' 6\""}, {u"2.5 m", u"8'2 54/127\""},
      {u"-5'-6\"", u"-5'6\""}, {u"10 ft", u"10'"},
  };
  for (const auto& [Text, Rewritten] : Rows) {
    EXPECT_EQ(Read(Text).Rewritten, Rewritten);
    EXPECT_TRUE(TMeasureDataManager::CheckDisplay(0, Rewritten));
  }
}

TEST_F(TypedReadingTest, GivesElevationsWhatTheirFunctionsRead) {
  for (const char16_t* Text :
       {u"-5' 6 1/2\"", u"L1 - (-5' 6 1/2\")", u"2 * (3)", u"5 - -3", u"(1+2) * 3", u"2.5 m"}) {
    const TTypedReading Reading = ReadTyped(3, Text, Sum);
    ASSERT_TRUE(Reading.Accepted) << ToUtf8(Reading.Reason);
    EXPECT_TRUE(CheckElevEditValue(Reading.Rewritten)) << ToUtf8(Reading.Rewritten);
  }
  EXPECT_EQ(GetElevStoreValue(ReadTyped(3, u"L1 - (-5' 6 1/2\")", Sum).Rewritten), u"L1+1.6891");
}

TEST_F(TypedReadingTest, SuggestsBothReadings) {
  EXPECT_THAT(Read(u"5-6", Sum).Suggestions, ElementsAre(u"5' 6\"", u"(5)-(6)"));
  EXPECT_THAT(Read(u"10'-6\"", Sum).Suggestions, ElementsAre(u"10' 6\"", u"(10')-(6\")"));
  EXPECT_THAT(Read(u"10'-6\"+2'", Sum).Suggestions, ElementsAre(u"10' 6\"+2'", u"(10')-(6\")+2'"));
  EXPECT_THAT(Read(u"5'6\"-1/2\"", Sum).Suggestions, ElementsAre(u"5'6 1/2\"", u"(5'6\")-(1/2\")"));
  EXPECT_THAT(Read(u"1-1/2").Suggestions, ElementsAre(u"1 1/2\"", u"1' 1/2\""));
  EXPECT_THAT(Read(u"5 6").Suggestions, ElementsAre(u"5' 6\"", u"56"));
  EXPECT_THAT(Read(u"(5'6\")").Suggestions, ElementsAre(u"5'6\"", u"-5'6\""));
  EXPECT_THAT(Read(u"10.5").Suggestions, ElementsAre(u"10.5 ft", u"10.5 in"));
  EXPECT_THAT(Read(u"1,5'").Suggestions, ElementsAre(u"1.5'", u"15'"));
  EXPECT_THAT(Read(u"61\u20442\"").Suggestions, ElementsAre(u"6 1/2\"", u"61/2\""));
  TTypedOptions Comma;
  Comma.DecimalComma = true;
  EXPECT_THAT(ReadTyped(1, u"1,234", Comma).Suggestions, ElementsAre(u"1234", u"1.2340"));
}

TEST_F(TypedReadingTest, SaysWhereItStopped) {
  const std::pair<const char16_t*, std::size_t> Rows[] = {
      {u"5 fet", 2}, {u"  5 fet", 4}, {u"10'+6\"", 3},   {u"5'6\"7\"", 4},
      {u"", 0},      {u"   ", 3},     {u"5'6 1/0\"", 6},
  };
  for (const auto& [Text, Offset] : Rows) {
    EXPECT_FALSE(Read(Text).Accepted);
    EXPECT_EQ(Read(Text).Offset, Offset) << ToUtf8(Text);
  }
}

TEST_F(TypedReadingTest, StoresInTheUnitOfTheScaleIndex) {
  TTypedOptions InMetres;
  InMetres.ScaleIndex = 3;
  EXPECT_DOUBLE_EQ(Read(u"2.5 m", InMetres).StoreValue, 2.5);
  EXPECT_DOUBLE_EQ(Read(u"5'6\"", InMetres).StoreValue, 1.6764);
}

TEST_F(TypedReadingTest, ExplainsItsSteps) {
  const TTypedReading Reading = Read(u"10'-6 1/2\"");
  std::vector<std::u16string> Names, Texts;
  for (const TTypedStep& Step : Reading.Steps) {
    Names.push_back(Step.Name);
    Texts.push_back(Step.Text);
  }
  EXPECT_THAT(Names, ElementsAre(u"typed", u"understood", u"rewritten", u"imperial form", u"feet", u"inches",
                                 u"fraction", u"value", u"shown back"));
  EXPECT_THAT(Texts,
              ElementsAre(u"10'-6 1/2\"", u"10 feet 6 1/2 inches, dash read as a separator", u"10'6 1/2\"",
                          u"10'6 1/2\"", u"10", u"6", u"1/2", u"3213.1 mm", u"10' 6 1/2\""));
}

TEST_F(TypedReadingTest, ReadsWhatCannotBeShown) {
  // Square feet are shown in groups of digits, and none is current: reading needs none.
  const int Group = TSystemUnitDataManager::GetCurDigitGroupIndex();
  TSystemUnitDataManager::SetCurDigitGroupIndex(7);
  const TTypedReading Reading = ReadTyped(1, u"2");
  TSystemUnitDataManager::SetCurDigitGroupIndex(Group);
  EXPECT_TRUE(Reading.Accepted);
  EXPECT_DOUBLE_EQ(Reading.StoreValue, 2 * 92903.04);
}

TEST_F(TypedReadingTest, RefusesLongTextsAtOnce) {
  for (const char16_t C : std::u16string_view(u"1( '-½a,")) {
    const TTypedReading Reading = Read(std::u16string(1000000, C), Sum);
    EXPECT_FALSE(Reading.Accepted);
  }
  EXPECT_EQ(Read(std::u16string(1001, u'1')).Problem, TTypedProblem::TooLong);
  EXPECT_EQ(Read(std::u16string(500, u'(') + u"1" + std::u16string(499, u')'), Sum).Problem,
            TTypedProblem::Arithmetic);
}

TEST_F(TypedReadingTest, SaysWhyAValueIsOutOfRange) {
  struct TRow {
    int Measure;
    std::u16string_view Text;
    TTypedProblem Problem;
    std::u16string_view Reason;
  };
  const TRow Rows[] = {
      {1, u"0.000000000000001", TTypedProblem::Range, u"0.000000000000001 is outside the range of values"},
      {1, u"0.000000000000001 sq ft", TTypedProblem::Range,
       u"this value cannot be written in the unit of the field"},
      {1, u"1000000*1000000000", TTypedProblem::Range, u"1E15 is outside the range of values"},
      {1, u"1000000000000000", TTypedProblem::Range, u"more than 15 digits"},
      {0, u"400000000000000 m", TTypedProblem::Range, u"more digits than an imperial length holds"},
      {0, u"(5+6) ft", TTypedProblem::UnknownUnit, u"a unit without a number before it"},
  };
  for (const TRow& Row : Rows) {
    const TTypedReading Reading = ReadTyped(Row.Measure, Row.Text, Sum);
    EXPECT_FALSE(Reading.Accepted) << ToUtf8(Row.Text);
    EXPECT_EQ(Reading.Problem, Row.Problem) << ToUtf8(Row.Text);
    EXPECT_EQ(ToUtf8(Reading.Reason), ToUtf8(Row.Reason));
  }
}

TEST_F(TypedReadingTest, AUnitOfTheHostIsNotReadInWords) {
  struct TBushel : TCommonUnitParser {
    using TCommonUnitParser::TCommonUnitParser;
    double GetScale(int ScaleIndex) const override { return 35.2e6 / GetMScale(ScaleIndex); }
  };
  RegisterUnitParser(u"TTestBushelParser", CreateUnitParser<TBushel>);
  UseUnit(2, 0).UnitParserClassName = u"TTestBushelParser";
  EXPECT_EQ(ReadTyped(2, u"2").StoreValue, 70.4e6);
  const TTypedReading Reading = ReadTyped(2, u"2 cu ft");
  EXPECT_EQ(Reading.Problem, TTypedProblem::Field);
  EXPECT_EQ(Reading.Reason, u"the unit of this field reads its own texts only");
}

TEST_F(TypedReadingTest, AnUnknownMeasureIsNoField) {
  const TTypedReading Reading = ReadTyped(42, u"1");
  EXPECT_FALSE(Reading.Accepted);
  EXPECT_EQ(Reading.Problem, TTypedProblem::Field);
}

TEST_F(TypedReadingTest, NeedsSettings) {
  FreeUnitSystem();
  EXPECT_THROW(Read(u"1"), EListError);
}

TEST_F(TypedReadingTest, ClassesOfTheHostReadTheirOwnTexts) {
  UseUnit(1, 0).UnitParserClassName = u"TTonParser"; // a mass where an area was
  EXPECT_TRUE(ReadTyped(1, u"5").Accepted);
  EXPECT_EQ(ReadTyped(1, u"5 SF").StoreValue, 5000); // the facade takes its symbol off
  EXPECT_EQ(ReadTyped(1, u"5 sq ft").Problem, TTypedProblem::OtherQuantity);
}

} // namespace
} // namespace unitlib::test
