/// Texts in another language: the file form, the hook, filling in values.
#include "unitlib/rtl/UserTexts.h"

#include "tests/support/Settings.h"
#include "tests/support/TextPrinter.h"
#include "unitlib/rtl/Errors.h"
#include "unitlib/rtl/Text.h"

#include <gtest/gtest.h>

namespace unitlib {
namespace {

struct TEntryRow {
  const char* Name;
  const char* Content;
  std::u16string_view Text; // of key "a"
};
class Entry : public ::testing::TestWithParam<TEntryRow> {};

TEST_P(Entry, IsRead) {
  const TTextTable Table = TTextTable::FromMemory(GetParam().Content);
  ASSERT_NE(Table.Find(u"a"), nullptr);
  EXPECT_EQ(*Table.Find(u"a"), GetParam().Text);
  EXPECT_EQ(Table.Find(u"b"), nullptr);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Entry,
    ::testing::Values(TEntryRow{"Plain", "a = one two", u"one two"}, TEntryRow{"NoBlanks", "a=x", u"x"},
                      TEntryRow{"BlanksAround", "\t a  =  x  \r\n", u"x"},
                      TEntryRow{"BehindCommentAndEmptyLine", "# c = d\n\n  # e\na = x\n", u"x"},
                      TEntryRow{"EqualsInTheText", "a = b = c", u"b = c"},
                      TEntryRow{"HashInTheText", "a = #1", u"#1"},
                      TEntryRow{"BlanksAtTheEnds", "a = \\s x \\s", u"  x  "},
                      TEntryRow{"LineBreakAndTab", "a = x\\n\\ty", u"x\n\ty"},
                      TEntryRow{"Backslash", "a = x\\\\ny", u"x\\ny"},
                      TEntryRow{"Mark",
                                "\xEF\xBB\xBF"
                                "a = x",
                                u"x"},
                      TEntryRow{"Chinese", "a = \xE5\x8D\x95\xE4\xBD\x8D", u"\u5355\u4F4D"}),
    [](const auto& Info) { return Info.param.Name; });

struct TWrongRow {
  const char* Name;
  std::string_view Content;
  std::u16string_view Message;
};
class WrongEntry : public ::testing::TestWithParam<TWrongRow> {};

TEST_P(WrongEntry, IsRefusedWithItsLine) {
  try {
    TTextTable::FromMemory(GetParam().Content, u"t.txt");
    FAIL() << "was read";
  } catch (const EConvertError& Error) {
    EXPECT_EQ(Error.Message(), GetParam().Message);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Rows, WrongEntry,
    ::testing::Values(TWrongRow{"NoEquals", "# c\nabc", u"t.txt:2: Not of the form key = text: abc"},
                      TWrongRow{"NoKey", "= x", u"t.txt:1: Not of the form key = text: = x"},
                      TWrongRow{"NoText", "\n\na =", u"t.txt:3: The text is empty: a"},
                      TWrongRow{"Twice", "a = x\nb = y\na = z", u"t.txt:3: The key occurs twice: a"},
                      TWrongRow{"UnknownEscape", "a = \\q",
                                u"t.txt:1: Unknown escape (\\n, \\t, \\s, \\\\ are known): \\q"},
                      TWrongRow{"BackslashAtTheEnd", "a = x\\",
                                u"t.txt:1: Unknown escape (\\n, \\t, \\s, \\\\ are known): x\\"},
                      TWrongRow{"NotUtf8", "a = \xFF", u"t.txt:1: Not a text in UTF-8"}),
    [](const auto& Info) { return Info.param.Name; });

std::u16string Shout(void* Context, std::u16string_view Key, std::u16string_view English) {
  ++*static_cast<int*>(Context);
  return Key == u"quiet" ? std::u16string() : std::u16string(English) + u"!";
}

class UserTexts : public ::testing::Test {
protected:
  ~UserTexts() override { LoadTextTable(u""); }
  test::TPrivateFolders Folders;
};

TEST_F(UserTexts, AreEnglishWithoutASource) {
  EXPECT_EQ(UserText(u"a", u"English"), u"English");
}

TEST_F(UserTexts, ComeFromTheHostsSource) {
  int Calls = 0;
  EXPECT_FALSE(SetTextSource(TTextSource::Of<&Shout>(&Calls)));
  EXPECT_EQ(UserText(u"a", u"Hello"), u"Hello!");
  EXPECT_EQ(UserText(u"quiet", u"Hello"), u"Hello");
  EXPECT_EQ(SetTextSource({}), TTextSource::Of<&Shout>(&Calls));
  EXPECT_EQ(UserText(u"a", u"Hello"), u"Hello");
  EXPECT_EQ(Calls, 2);
}

TEST_F(UserTexts, ComeFromAFileAndOneByOne) {
  const std::u16string Path = (Folders.Root() / "t.txt").u16string();
  test::WriteBytes(Path, "a = A\nb = B\n");
  LoadTextTable(Path);
  SetUserText(u"b", u"own");
  SetUserText(u"c", u"C");
  EXPECT_EQ(UserText(u"a", u"x") + UserText(u"b", u"y") + UserText(u"c", u"z"), u"AownC");
  SetUserText(u"b", u"");
  SetUserText(u"never there", u"");
  EXPECT_EQ(UserText(u"b", u"y"), u"y");
  test::WriteBytes(Path, "a = new\nb");
  EXPECT_THROW(LoadTextTable(Path), EConvertError);
  EXPECT_THROW(LoadTextTable(Path + u"?"), EFileError);
  EXPECT_EQ(UserText(u"a", u"x"), u"A") << "a failed load changes nothing";
  LoadTextTable(u"");
  EXPECT_EQ(UserText(u"a", u"x"), u"x");
}

TEST(EscapedText, IsReadBack) {
  for (const std::u16string Text : {u" Config: ", u"a\nb\tc\\n", u"x", u"  two  ", u"5' 6\""}) {
    const std::string Line = "a = " + ToUtf8(EscapedText(Text));
    EXPECT_EQ(*TTextTable::FromMemory(Line).Find(u"a"), Text) << Line;
  }
}

TEST(FillText, PutsValuesIntoTheirPlaces) {
  const std::u16string Values[] = {u"one", u"{0}"};
  EXPECT_EQ(FillText(u"{1}-{0}-{0}", Values), u"{0}-one-one");
  EXPECT_EQ(FillText(u"{2} {x} {} { {0", Values), u"{2} {x} {} { {0");
  EXPECT_EQ(FillText(u"", Values), u"");
}

} // namespace
} // namespace unitlib
