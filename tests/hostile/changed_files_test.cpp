/// A good file changed in one place: every element and every attribute missing in turn, values of the wrong
/// form, cut ends, flipped bits.
#include "tests/hostile/HostileFile.h"
#include "tests/hostile/SettingsText.h"
#include "unitlib/rtl/Errors.h"

#include <cstdlib>
#include <set>

namespace unitlib::test {
namespace {

using TManager = TSystemUnitDataManager;

class ChangedFile : public THostileFile {
protected:
  const TSettingsText& Small = TSettingsText::Small();
};

/// Elements that a file may have any number of.
const std::set<std::string> Repeated = {"Config", "Measurement", "Round", "UnitSymbol", "CGroup"};

bool MayBeMissing(const TSettingsText::TElement& Element) {
  return Repeated.contains(Element.Name) || (Element.Name == "Unit" && Element.Parent == "Measurement");
}

TEST_F(ChangedFile, WithoutEachElementInTurn) {
  ASSERT_EQ(Small.Elements().size(), 19U) << "every kind of element once, the digit groups twice";
  for (const auto& Element : Small.Elements()) {
    SCOPED_TRACE(Element.Parent + "/" + Element.Name);
    const TOutcome Outcome = Load(Small.WithoutElement(Element));
    EXPECT_EQ(Outcome.Kind, MayBeMissing(Element) ? "loaded" : "EXmlError");
    if (Outcome.Kind == "loaded" || Element.Parent.empty()) continue; // without a root there is no place
    EXPECT_EQ(Outcome.Element, Element.Parent);
    EXPECT_NE(Outcome.Message.find("Missing child \"" + Element.Name + "\""), std::string::npos)
        << Outcome.Message;
    EXPECT_GT(Outcome.Line, 1);
  }
}

TEST_F(ChangedFile, WithoutEachAttributeInTurn) {
  int Count = 0;
  for (const auto& Element : Small.Elements())
    for (const auto& Attribute : Element.Attributes) {
      SCOPED_TRACE(Element.Name + "/" + Attribute.Name);
      const TOutcome Outcome = Load(Small.WithoutAttribute(Element, Attribute));
      EXPECT_EQ(Outcome.Kind, "EXmlError");
      EXPECT_EQ(Outcome.Element, Element.Name);
      EXPECT_EQ(Outcome.Attribute, Attribute.Name);
      EXPECT_EQ(Outcome.Line, Element.Line);
      ++Count;
    }
  EXPECT_EQ(Count, 56); // 1+2+6+9+5+2+6*4+1+2*3
}

enum class TForm { Text, Integer, Boolean };

TForm FormOf(const std::string& Attribute) {
  static const std::set<std::string> Texts = {"Description",         "ExampleValue",
                                              "Increment",           "DefUnitSymbolWhenNone",
                                              "UnitParserClassName", "DigitGroupParserClassName"};
  static const std::set<std::string> Booleans = {"DefEnable", "Enable",           "DefChecked",
                                                 "Checked",   "IncrementCanEdit", "IncrementCanVisible"};
  if (Texts.contains(Attribute)) return TForm::Text;
  return Booleans.contains(Attribute) ? TForm::Boolean : TForm::Integer;
}

struct TValueRow {
  const char* Reason;
  const char* Value;
  bool IsInteger, IsBoolean;
};

constexpr TValueRow Values[] = {
    {"empty", "", false, false},
    {"a word", "none", false, false},
    {"a decimal number", "1.5", false, false},
    {"the largest integer", "2147483647", true, false},
    {"the smallest integer", "-2147483648", true, false},
    {"one above the largest", "2147483648", false, false},
    {"one below the smallest", "-2147483649", false, false},
    {"beyond 64 bits", "99999999999999999999999999", false, false},
    {"far outside any list", "1000000", true, false},
    {"just before the list", "-1", true, true},
    {"two", "2", true, false},
    {"a leading blank", " 1", false, false},
    {"a trailing blank", "1 ", false, false},
    {"hexadecimal", "0x1", false, false},
    {"digits of another script", "\xEF\xBC\x91", false, false},
    {"a Boolean in capitals", "TRUE", false, true},
    {"an unknown entity", "&nothing;", false, false},
    {"infinity", "inf", false, false},
};

TEST_F(ChangedFile, WithValuesOfEveryForm) {
  for (const auto& Element : Small.Elements())
    for (const auto& Attribute : Element.Attributes)
      for (const TValueRow& Row : Values) {
        SCOPED_TRACE(Element.Name + "/" + Attribute.Name + ": " + Row.Reason);
        const TForm Form = FormOf(Attribute.Name);
        const bool Fits = Form == TForm::Text || (Form == TForm::Integer ? Row.IsInteger : Row.IsBoolean);
        const TOutcome Outcome = Load(Small.WithValue(Element, Attribute, Row.Value));
        EXPECT_EQ(Outcome.Kind, Fits ? "loaded" : "EXmlError") << Outcome.Message;
        EXPECT_EQ(Outcome.Attribute, Fits ? "" : Attribute.Name);
        EXPECT_EQ(Outcome.Element, Fits ? "" : Element.Name);
      }
}

TEST_F(ChangedFile, CutAtEveryByte) {
  const std::string Text = Small.Text();
  const std::size_t Whole = Text.rfind('>') + 1;
  for (std::size_t Size = 0; Size <= Text.size(); ++Size) {
    const TOutcome Outcome = Load(Text.substr(0, Size));
    ASSERT_EQ(Outcome.Kind, Size < Whole ? "EXmlError" : "loaded") << Size << " bytes: " << Outcome.Message;
  }
}

TEST_F(ChangedFile, FactoryFileCutAtEveryThousandthByte) {
  const std::string Text = TSettingsText::Factory().Text();
  ASSERT_GT(Text.size(), 300000U);
  for (std::size_t Size = 1000; Size < Text.size(); Size += 1000) {
    const TOutcome Outcome = Load(Text.substr(0, Size));
    ASSERT_EQ(Outcome.Kind, "EXmlError") << Size << " bytes";
    const auto Lines = std::count(Text.begin(), Text.begin() + static_cast<std::ptrdiff_t>(Size), '\n');
    ASSERT_LE(Outcome.Line, Lines + 1) << Size << " bytes";
    ASSERT_GE(Outcome.Line, Lines) << "the place is the end of the file";
  }
}

/// What a load of the text gives when saved; empty when it does not load.
std::string SavedAgain(const TPrivateFolders& Folders, std::string_view Text) {
  const std::u16string In = Folders.File("in.xml"), Out = Folders.File("out.xml");
  WriteBytes(In, Text);
  try {
    TManager::InitUnitSystemSetting(In);
    TManager::SaveConfigFile(Out);
  } catch (const EUnitError&) {
    return {};
  }
  return ReadBytes(Out);
}

/// The same text with a comment, which settings that the library writes never have: another reader is in
/// charge of it.
std::string WithComment(std::string Text) {
  const std::size_t End = Text.find("?>");
  return End == std::string::npos ? Text : Text.insert(End + 2, "<!-- -->");
}

TEST_F(ChangedFile, IsReadAlikeByBothReaders) {
  const std::string Text = Small.Text();
  for (std::size_t Bit = 0; Bit < Text.size() * 8; Bit += std::getenv("UNITLIB_FULL_SIZE") ? 1 : 11) {
    std::string Flipped = Text;
    Flipped[Bit / 8] = static_cast<char>(Flipped[Bit / 8] ^ (1 << Bit % 8));
    const TOutcome Short = Load(Flipped), Document = Load(WithComment(Flipped));
    ASSERT_EQ(Short.Kind + Short.Message + "|" + Short.Element + "|" + Short.Attribute,
              Document.Kind + Document.Message + "|" + Document.Element + "|" + Document.Attribute)
        << "bit " << Bit;
    ASSERT_EQ(SavedAgain(Folders, Flipped), SavedAgain(Folders, WithComment(Flipped))) << "bit " << Bit;
  }
}

TEST_F(ChangedFile, WithEachBitFlippedInTurn) {
  const std::string Text = Small.Text();
  int Loaded = 0;
  // Every bit in the nightly run; otherwise every 13th, a prime that meets all eight bits of a byte.
  const std::size_t Step = std::getenv("UNITLIB_FULL_SIZE") ? 1 : 13;
  for (std::size_t Bit = 0; Bit < Text.size() * 8; Bit += Step) {
    std::string Flipped = Text;
    Flipped[Bit / 8] = static_cast<char>(Flipped[Bit / 8] ^ (1 << Bit % 8));
    ASSERT_NE(Load(Flipped).Kind, "unexpected") << "bit " << Bit;
    const std::string Once = SavedAgain(Folders, Flipped);
    if (Once.empty()) continue;
    ++Loaded;
    ASSERT_EQ(SavedAgain(Folders, Once), Once) << "bit " << Bit << ": what was loaded is what is saved";
  }
  EXPECT_GT(Loaded, 100) << "a digit or letter turned into another one";
}

} // namespace
} // namespace unitlib::test
