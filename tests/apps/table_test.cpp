#include "apps/common/ProgressBar.h"
#include "apps/common/TablePrinter.h"
#include "apps/common/TextWidth.h"

#include <gtest/gtest.h>

namespace unitlib::app {
namespace {

TEST(TextWidth, CountsColumns) {
  EXPECT_EQ(DisplayWidth(""), 0U);
  EXPECT_EQ(DisplayWidth("5' 6\""), 5U);
  EXPECT_EQ(DisplayWidth("m\xC2\xB3"), 2U);                            // superscript three
  EXPECT_EQ(DisplayWidth("\xE6\xB7\xB7\xE5\x87\x9D\xE5\x9C\x9F"), 6U); // three Chinese characters
  EXPECT_EQ(DisplayWidth("\xED\x95\x9C"), 2U);                         // a Korean syllable
  EXPECT_EQ(DisplayWidth("\xEF\xBC\x91"), 2U);                         // a full-width digit
  EXPECT_EQ(DisplayWidth("e\xCC\x81"), 1U);                            // e and a combining accent
  EXPECT_EQ(DisplayWidth("\xF0\x9F\x8F\xA0"), 2U);                     // a house
  EXPECT_EQ(DisplayWidth("\xFF\xFE"), 2U);                             // malformed: a column for each byte
}

TEST(TextWidth, TakesMalformedBytesOneByOne) {
  EXPECT_EQ(CharacterSize("\xE6\xB7"), 1U);
  EXPECT_EQ(CharacterSize("\xC0\x80"), 1U);         // overlong
  EXPECT_EQ(CharacterSize("\xED\xA0\x80"), 1U);     // half a surrogate pair
  EXPECT_EQ(CharacterSize("\xF4\x90\x80\x80"), 1U); // above U+10FFFF
  EXPECT_EQ(CharacterSize("\xE6\xB7\xB7x"), 3U);
}

TEST(Table, AlignsColumns) {
  TTable Table({{"Item"}, {"Value", TAlign::Right}, {"Note"}});
  Table.Add({"Wall", "1", "x"});
  Table.Add({"\xE6\xB7\xB7\xE5\x87\x9D\xE5\x9C\x9F", "1,234.5", ""});
  Table.Add({"a\nb"});
  EXPECT_EQ(Table.Text(), "Item      Value  Note\n"
                          "------  -------  ----\n"
                          "Wall          1  x\n"
                          "\xE6\xB7\xB7\xE5\x87\x9D\xE5\x9C\x9F  1,234.5\n"
                          "a\\nb\n");
}

TEST(Table, WithoutRowsIsATitle) {
  EXPECT_EQ(TTable({{"A"}, {"B"}}).Text(), "A  B\n-  -\n");
}

TEST(Progress, ShowsShareAndRows) {
  EXPECT_EQ(ProgressLine(50, 100, 7), "[###############               ]  50 %  7 rows");
  EXPECT_EQ(ProgressLine(100, 100, 7), "[##############################] 100 %  7 rows");
  EXPECT_EQ(ProgressLine(500, 100, 7), "[##############################] 100 %  7 rows"); // a file that grows
  EXPECT_EQ(ProgressLine(50, 0, 7), "7 rows");
}

} // namespace
} // namespace unitlib::app
