/// Nothing throws: what a conversion would raise is the parser's error, whatever the settings are.
#include "ExpressionTests.h"

#include <gtest/gtest.h>

namespace unitlib::test {
namespace {

void ExpectUnchanged(std::u16string_view Text) {
  EXPECT_EQ(GetElevStoreValue(Text), Text);
  EXPECT_EQ(GetElevEditValue(Text), Text);
  EXPECT_EQ(GetElevDisplayValue(Text), Text);
  EXPECT_FALSE(CheckElevEditValue(Text));
}

std::u16string ErrorOf(std::u16string_view Text) {
  TParser Parser(Text);
  EXPECT_EQ(Parser.Parse(), nullptr);
  EXPECT_TRUE(Parser.FHasError);
  return Parser.FErrMsg;
}

TEST(WithoutSettings, EveryOperandIsAnError) {
  FreeUnitSystem();
  for (const char16_t* Text : {u"5", u"A", u"5'", u"1+2", u"(1+2)*3", u"-(5)", u"1/2\""}) {
    EXPECT_FALSE(ErrorOf(Text).empty()) << ToUtf8(Text);
    EXPECT_NE(ErrorOf(Text), u"can not be nil afer operator");
    ExpectUnchanged(Text);
  }
  TParser Parser(u"");
  TNode Operand;
  Operand.SetValue(u"5");
  Parser.ProcessNode(Operand);
  EXPECT_FALSE(Parser.FErrMsg.empty());
}

TEST(WithoutSettings, TextsOfATreeReadBeforeAreErrors) {
  TPrivateFolders Folders;
  const auto Root = [] {
    struct TLoaded : TFactorySettings {
      TLoaded() { UseUnit(ElevationMeasure, FeetAndInches); }
      void TestBody() override {}
    } Loaded;
    TParser Parser(u"A+5'6\"");
    auto Tree = Parser.Parse();
    Parser.Mark(*Tree);
    return Tree;
  }();
  TParser Store(u""), Edit(u""), Display(u"");
  EXPECT_EQ(Store.GetStoreValue(*Root), u"A+1.6764"); // needs no settings
  EXPECT_EQ(Edit.GetEditValue(*Root), u"");
  EXPECT_FALSE(Edit.FErrMsg.empty());
  EXPECT_EQ(Display.GetDisplayValue(*Root), u"");
  EXPECT_FALSE(Display.FErrMsg.empty());
}

class OddSettings : public TFactorySettings {
protected:
  TMeasure& Measure = *TSystemUnitDataManager::CurConfigMeasure(ElevationMeasure);
};

TEST_F(OddSettings, NoElevationMeasure) {
  Measure.ClassifyCode = 33;
  EXPECT_FALSE(ErrorOf(u"5").empty());
  ExpectUnchanged(u"A+5");
}

TEST_F(OddSettings, NoConfigurationChosen) {
  TSystemUnitDataManager::SetCurConfig(-1);
  EXPECT_FALSE(ErrorOf(u"5").empty());
  ExpectUnchanged(u"5");
}

TEST_F(OddSettings, NoCurrentUnit) {
  Measure.CurUnitIndex = -1;
  EXPECT_FALSE(ErrorOf(u"5").empty());
  ExpectUnchanged(u"A+5");
}

TEST_F(OddSettings, UnitWithoutParser) {
  UseUnit(ElevationMeasure, FeetAndInches).UnitParserClassName = u"TNobodysParser";
  EXPECT_EQ(ErrorOf(u"5'"), u"Imperial format error: 5'"); // nobody can read it
  EXPECT_EQ(GetElevStoreValue(u"A+5"), u"A+5");
  EXPECT_FALSE(CheckElevEditValue(u"A+5"));
  EXPECT_EQ(GetElevEditValue(u"A+5"), u"A+5"); // and nobody can write it: the number itself
}

TEST_F(OddSettings, IncrementThatIsNoNumber) {
  for (const TLengthUnit Unit : {FeetAndInches, FractionalInches, Meters}) {
    UseUnit(ElevationMeasure, Unit).GetCurRound()->SetIncrement(u"bad");
    EXPECT_EQ(GetElevEditValue(u"A+5"), u"A+5");
    EXPECT_EQ(GetElevDisplayValue(u"5"), u"5");
    TParser Parser(u"A+5");
    const auto Root = Parser.Parse();
    Parser.Mark(*Root);
    EXPECT_EQ(Parser.GetEditValue(*Root), u"");
    EXPECT_FALSE(Parser.FErrMsg.empty());
    EXPECT_EQ(Parser.FErrPos, 2);
  }
}

TEST_F(OddSettings, UnitThatIsNeitherImperialNorMetric) {
  UseUnit(ElevationMeasure, Meters).UnitIdentifyCode = 99;
  EXPECT_EQ(Parsed(u"A+5"), "(+ A:v 5)");
  EXPECT_EQ(Parsed(u"1/2\"+5"), "! Imperial format error: 2\"");
}

} // namespace
} // namespace unitlib::test
