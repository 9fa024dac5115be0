/// A short comparison of the fast paths with the literal way; tools/nightly runs a long one.
#include "tests/nightly/FastPathComparison.h"
#include "tests/support/Settings.h"
#include "unitlib/model/ZELUnitConfigFileGenerator.h"
#include "unitlib/rtl/Xml.h"

#include <gtest/gtest.h>

namespace unitlib {
namespace {

TEST(FastPaths, AgreeWithTheLiteralWay) {
  constexpr std::uint64_t Count = 300'000, Seed = 20261121;
  const test::TComparison Result = test::CompareFastPaths(Count, Seed);
  EXPECT_GE(Result.Count, Count);
  EXPECT_EQ(Result.Different, 0U) << "seed " << Seed << ": " << Result.First;
}

class SettingsText : public test::TFactorySettings {
protected:
  /// The settings written through a document, as the writers of the generator build it.
  static std::string ThroughDocument() {
    using M = TSystemUnitDataManager;
    const auto Document = CreateXMLDocument(true, true);
    TXMLNode Root = Document->AddDocumentElement(u"Unit");
    TXMLNode Template = Root.AddChild(u"TemplateConfig");
    Template.AddInteger(u"CurConfigIndex", M::FCurConfigIndex);
    int Position = 0;
    for (const auto& Config : M::CurUseUnitConfigContainer())
      GenerateOneConfig(Template, Config->Description, Position++, *Config);
    TXMLNode Groups = Root.AddChild(u"DigitGroup");
    Groups.AddInteger(u"CurDigitGroupIndex", M::FCurDigitGroupIndex);
    Position = 0;
    for (const auto& Group : *M::FCurUseDigitGroupContainer)
      GenerateOneGroup(Groups, Group->Description, Position++, Group->DigitGroupParserClassName);
    return Document->SaveToMemory();
  }
};

TEST_F(SettingsText, OfTheFactorySettings) {
  EXPECT_EQ(TSystemUnitDataManager::SaveConfigToMemory(), ThroughDocument());
}

TEST_F(SettingsText, OfEmptyLists) {
  TSystemUnitDataManager::CurConfig()->MeasureContainer.Clear();
  TSystemUnitDataManager::FCurUseDigitGroupContainer->Clear();
  EXPECT_EQ(TSystemUnitDataManager::SaveConfigToMemory(), ThroughDocument());
}

TEST_F(SettingsText, OfTextsThatAreEscaped) {
  TUnit& Unit = UseUnit(0, 0);
  for (const std::u16string_view Text :
       {u"a & b < c > d \" e ' f", u"tab\tline\nreturn\r", u"&amp;", u"\u00E9\u4E2D\U0001F600", u"",
        u"a text of more than sixty-four characters, so that it does not fit & the buffer \x7F end",
        u"]]>"}) {
    Unit.Description = Unit.DefUnitSymbolWhenNone = Unit.RoundContainer[0].Description = Text;
    TSystemUnitDataManager::FCurUseUnitConfigContainer->Item(0).Description = Text;
    EXPECT_EQ(TSystemUnitDataManager::SaveConfigToMemory(), ThroughDocument());
  }
}

} // namespace
} // namespace unitlib
