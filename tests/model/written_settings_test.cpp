/// The short way to load a settings file beside the reader of documents.
#include "unitlib/model/WrittenSettings.h"

#include "tests/model/SmallSettings.h"
#include "tests/support/Settings.h"
#include "unitlib/model/ZELUnitConfigFileGenerator.h"
#include "unitlib/rtl/Errors.h"
#include "unitlib/rtl/Files.h"

#include <gtest/gtest.h>

namespace unitlib {
namespace {

using TManager = TSystemUnitDataManager;
using test::SmallSettings;

constexpr std::string_view Declaration = R"(<?xml version="1.0" encoding="UTF-8"?>)";

class WrittenSettings : public testing::Test {
protected:
  ~WrittenSettings() override { FreeUnitSystem(); }

  /// The settings that a load gives, as saved, or its error.
  std::string Loaded(std::string_view Content) {
    test::WriteBytes(Path, Content);
    try {
      TManager::InitUnitSystemSetting(Path);
      return TManager::SaveConfigToMemory();
    } catch (const EXmlError& Error) {
      return std::string(Error.what()) + "\n" + ToUtf8(Error.Element()) + "/" + ToUtf8(Error.Attribute());
    }
  }
  /// The same through a document: no comment is what the library writes.
  std::string LoadedAsDocument(std::string Content) {
    return Loaded(Content.insert(Declaration.size(), "<!-- -->"));
  }

  test::TPrivateFolders Folders;
  const std::u16string Path = Folders.File("settings.xml");
};

TEST_F(WrittenSettings, FactoryFileIsTaken) {
  GenerateUnitDefaultConfigFile(Path);
  const std::string Content = ReadWholeFile(Path);
  EXPECT_TRUE(ReadWrittenSettings(Content));
  const std::string Short = Loaded(Content);
  EXPECT_EQ(Short, Content);
  EXPECT_EQ(LoadedAsDocument(Content), Short);
}

TEST_F(WrittenSettings, HoldEveryValue) {
  const auto Read = ReadWrittenSettings(std::string(SmallSettings));
  ASSERT_TRUE(Read);
  ASSERT_EQ(Read->Configs.size(), 1U);
  const TMeasure& Measure = *Read->Configs[0]->Measure(0, false);
  EXPECT_EQ(Measure.ExampleValue, u"1.5");
  EXPECT_EQ(Measure.ClassifyCode, 6);
  const TUnit& Unit = *Measure.GetUnit(0);
  EXPECT_EQ(Unit.UnitIdentifyCode, 500);
  EXPECT_EQ(Unit.CurUnitSymbolIndex, -1);
  EXPECT_EQ(Unit.UnitParserClassName, u"TKilogramsParser");
  EXPECT_EQ(Unit.GetRound(0)->Description, u"To 6\"");
  EXPECT_EQ(Unit.GetRound(0)->Increment, u"0.5");
  EXPECT_TRUE(Unit.GetRound(0)->IncrementCanEdit);
  EXPECT_FALSE(Unit.GetRound(0)->IncrementCanVisible);
  EXPECT_EQ(Unit.GetUnitSymbol(0)->OrderIndex, 8);
  EXPECT_TRUE(Unit.SuppressTrail0.DefEnable && Unit.SuppressTrail0.DefChecked);
  EXPECT_FALSE(Unit.SuppressTrail0.Enable || Unit.SuppressTrail0.Checked);
  EXPECT_TRUE(Unit.Suppress0Feet.Enable && Unit.Suppress0Feet.Checked);
  ASSERT_EQ(Read->DigitGroups.size(), 1U);
  EXPECT_EQ(Read->DigitGroups[0]->DigitGroupParserClassName, u"TDigitGroup3CommaParser");
}

struct TRow {
  const char* Name;
  bool Taken;
  std::string_view Old, New;
};

class WrittenSettingsRow : public WrittenSettings, public testing::WithParamInterface<TRow> {};

TEST_P(WrittenSettingsRow, GivesWhatADocumentGives) {
  std::string Content(SmallSettings);
  const size_t At = Content.find(GetParam().Old);
  ASSERT_NE(At, std::string::npos);
  Content.replace(At, GetParam().Old.size(), GetParam().New);
  EXPECT_EQ(ReadWrittenSettings(Content).has_value(), GetParam().Taken);
  EXPECT_EQ(Loaded(Content), LoadedAsDocument(Content));
}

using namespace std::string_view_literals;

constexpr TRow Rows[] = {
    {"AsWritten", true, "", ""},
    {"OtherIndent", true, "\n          <Rounds>", "\r\n\t<Rounds>"},
    {"OneLine", true, "\n  <DigitGroup", "<DigitGroup"},
    {"EndTagOfAnEmptyElement", true, "OrderIndex=\"8\" />", "OrderIndex=\"8\"></UnitSymbol>"},
    {"NoMeasure", true, "ExampleValue=\"1.5\"", "ExampleValue=\"\""},
    {"ReferencesOfMarks", true, "\"kg\"", "\"&lt;&amp;&quot;\""},
    {"ReferencesOfSpaces", true, "\"kg\"", "\"&#09;&#10;&#13;\""},
    {"ReferenceOfAReference", true, "\"kg\"", "\"&amp;quot;\""},
    {"BeyondAscii", true, "\"kg\"", "\"m\xC2\xB2 \xE4\xB8\xAD \xF0\x9F\x98\x80 &amp;\""},
    {"GreaterAndApostrophe", true, "\"kg\"", "\"5' > 3'\""},
    {"NineDigits", true, "\"500\"", "\"-999999999\""},
    {"LeadingZeros", true, "\"500\"", "\"000000500\""},
    {"LineBreakAtTheEnd", true, "</Unit>\n", "</Unit>"},
    {"TenDigits", false, "\"500\"", "\"2147483647\""},
    {"TooLarge", false, "\"500\"", "\"2147483648\""},
    {"NoDigits", false, "\"500\"", "\"\""},
    {"OnlyASign", false, "\"500\"", "\"-\""},
    {"PlusSign", false, "\"500\"", "\"+5\""},
    {"BlankBehindADigit", false, "\"500\"", "\"5 \""},
    {"BooleanAsNumber", false, "\"true\"", "\"1\""},
    {"BooleanInCapitals", false, "\"true\"", "\"TRUE\""},
    {"WordAsBoolean", false, "\"true\"", "\"truex\""},
    {"OtherReference", false, "\"kg\"", "\"&gt;\""},
    {"NumericReference", false, "\"kg\"", "\"&#75;\""},
    {"ReferenceOfNul", false, "\"kg\"", "\"k&#0;g\""},
    {"UnknownReference", false, "\"kg\"", "\"&kg;\""},
    {"OpenReference", false, "\"kg\"", "\"&quot\""},
    {"LessThan", false, "\"kg\"", "\"<\""},
    {"LineFeedInAText", false, "\"kg\"", "\"k\ng\""},
    {"NulInAText", false, "\"kg\"", "\"k\0g\""sv},
    {"NulBetweenTags", false, "\n  <DigitGroup", "\0<DigitGroup"sv},
    {"NulAtTheEnd", false, "</Unit>\n", "</Unit>\0"sv},
    {"MalformedUtf8", false, "\"kg\"", "\"k\xC3\""},
    {"SurrogateInUtf8", false, "\"kg\"", "\"\xED\xA0\x80\""},
    {"Apostrophes", false, "\"kg\"", "'kg'"},
    {"AttributesExchanged", false, R"(Description="U" OrderIndex="4")", R"(OrderIndex="4" Description="U")"},
    {"AttributeTwice", false, R"(OrderIndex="8")", R"(OrderIndex="8" OrderIndex="9")"},
    {"AttributeMissing", false, R"( OrderIndex="8")", ""},
    {"AttributeOfALongerName", false, "Increment=", "Increments="},
    {"AttributeTooMany", false, R"(OrderIndex="8")", R"(OrderIndex="8" More="")"},
    {"TwoBlanks", false, "Description=\"U\" ", "Description=\"U\"  "},
    {"NoBlankBeforeTheEnd", false, "OrderIndex=\"8\" />", "OrderIndex=\"8\"/>"},
    {"ElementOfALongerName", false, "<Rounds>", "<Roundss>"},
    {"OtherElementInAList", false, "<UnitSymbol Des", "<Symbol Des"},
    {"ElementMissing", false, "<UnitSymbols>", "<Symbols>"},
    {"ElementsExchanged", false, "<Format>", "<Formats /><Format>"},
    {"ChildOfALeaf", false, "OrderIndex=\"8\" />", "OrderIndex=\"8\"><More /></UnitSymbol>"},
    {"OtherEndTag", false, "</Rounds>", "</Round>"},
    {"TextBetweenTags", false, "</Rounds>", "text</Rounds>"},
    {"CharacterData", false, "</Rounds>", "<![CDATA[text]]></Rounds>"},
    {"Comment", false, "</Rounds>", "<!-- text --></Rounds>"},
    {"SecondRoot", false, "</Unit>\n", "</Unit>\n<Unit></Unit>"},
    {"SomethingBehindTheRoot", false, "</Unit>\n", "</Unit>\n<"},
    {"CutInATag", false, "  <DigitGroup CurDigitGroupIndex=\"0\">", "  <DigitGroup Cur"},
    {"OtherVersion", false, "version=\"1.0\"", "version=\"1.1\""},
    {"OtherRoot", false, "<Unit>", "<Units>"},
};

INSTANTIATE_TEST_SUITE_P(Rows, WrittenSettingsRow, testing::ValuesIn(Rows),
                         [](const auto& Info) { return std::string(Info.param.Name); });

TEST_F(WrittenSettings, AnythingCutIsLeftToTheDocument) {
  const size_t Whole = SmallSettings.rfind('>') + 1;
  for (size_t Size = 0; Size < Whole; ++Size)
    ASSERT_FALSE(ReadWrittenSettings(std::string(SmallSettings.substr(0, Size)))) << Size << " bytes";
}

TEST_F(WrittenSettings, AnythingSavedIsTaken) {
  Loaded(SmallSettings);
  TMeasure& Measure = *TManager::CurConfig()->Measure(0, false);
  for (const std::u16string_view Description :
       {u"", u"a & b < c > d \" e ' f", u"&amp;quot;", u"\u00E9\u4E2D\U0001F600", u"\u007F\u0080\uFFFD]]>",
        u"tab\tline\nreturn\r"}) {
    Measure.Description = Measure.GetUnit(0)->Description = Description;
    const std::string Saved = TManager::SaveConfigToMemory();
    const auto Read = ReadWrittenSettings(Saved);
    ASSERT_TRUE(Read) << Saved;
    EXPECT_EQ(Read->Configs[0]->Measure(0, false)->Description, Description);
  }
}

} // namespace
} // namespace unitlib
