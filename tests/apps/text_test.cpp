#include "apps/common/NearestName.h"
#include "apps/common/Utf8.h"
#include "unitlib/rtl/Errors.h"
#include "unitlib/rtl/Numbers.h"
#include "unitlib/rtl/Text.h"

#include <gtest/gtest.h>

#include <random>

namespace unitlib::app {
namespace {

TEST(FromTerminal, RefusesMalformedText) {
  EXPECT_EQ(FromTerminal("m\xC2\xB3"), u"m\u00B3");
  EXPECT_THROW(FromTerminal("m\xB3"), EConvertError);
}

TEST(Printable, EscapesWhatATerminalWouldObey) {
  EXPECT_EQ(Printable("5' 6\" m\xC2\xB3"), "5' 6\" m\xC2\xB3");
  EXPECT_EQ(Printable("a\tb\r\n"), "a\\tb\\r\\n");
  EXPECT_EQ(Printable(std::string_view("\x1B[2J\0", 5)), "\\x1B[2J\\x00");
  EXPECT_EQ(Printable("\xC2\x9B"), "\\xC2\\x9B"); // a control character of the upper half
  EXPECT_EQ(Printable("\xFFx"), "\\xFFx");
}

TEST(MarkedText, PutsTheCaretUnderThePlace) {
  EXPECT_EQ(MarkedText("12x", 2), "  12x\n    ^\n");
  EXPECT_EQ(MarkedText("12", 2), "  12\n    ^\n");
  EXPECT_EQ(MarkedText("\xE6\xB7\xB7+", 3), "  \xE6\xB7\xB7+\n    ^\n"); // two columns wide
  EXPECT_EQ(MarkedText("\tx", 1), "  \\tx\n    ^\n");
  EXPECT_EQ(MarkedText("12x", NoPlace), "  12x\n");
}

TEST(MarkedText, CutsALongText) {
  const std::string Text = std::string(1000, 'a') + "!" + std::string(1000, 'b');
  EXPECT_EQ(MarkedText(Text, 1000), "  ..." + std::string(60, 'a') + "!" + std::string(59, 'b') + "...\n" +
                                        std::string(65, ' ') + "^\n");
}

TEST(Utf8Offset, CountsBytes) {
  EXPECT_EQ(Utf8Offset(u"\u6DF7+x", 2), 4U);
  EXPECT_EQ(Utf8Offset(u"ab", 9), 2U);
}

struct TStopRow {
  const char* Name;
  const char* Text;
  std::size_t Place;
};

class NumberStopRow : public ::testing::TestWithParam<TStopRow> {};

TEST_P(NumberStopRow, IsWhereReadingStops) {
  EXPECT_EQ(NumberStop(GetParam().Text), GetParam().Place);
}

const TStopRow StopRows[] = {
    {"Letter", "12x", 2},
    {"LetterFirst", "abc", 0},
    {"SecondPoint", "1.2.3", 3},
    {"Comma", "1,234", 1},
    {"SecondSign", "--5", 1},
    {"BlankBehindSign", "- 5", 1},
    {"SignAlone", "-", 1},
    {"PointAlone", ".", 1},
    {"ExponentWithoutDigits", "1e", 2},
    {"ExponentWithSignOnly", "1e+x", 3},
    {"Empty", "", 0},
    {"Blanks", "  ", 2},
    {"TextBehindBlank", "1 2", 2},
    {"Tab", "1\t", 1},
    {"NotANumber", "nan", 0},
    {"Whole", "12", NoPlace},
    {"Blanked", " -12.5e+3 ", NoPlace},
    {"PointFirst", ".5", NoPlace},
    {"PointLast", "5.", NoPlace},
    {"OutOfRange", "1e400", NoPlace},
};

INSTANTIATE_TEST_SUITE_P(Rows, NumberStopRow, ::testing::ValuesIn(StopRows),
                         [](const auto& Info) { return Info.param.Name; });

TEST(NumberStop, AgreesWithTheLibrarysNumbers) {
  const unsigned Seed = 20261121;
  SCOPED_TRACE(Seed);
  std::mt19937 Random(Seed);
  const std::string Letters = " +-.0129eEx,";
  for (int I = 0; I < 200000; ++I) {
    std::string Text;
    for (std::size_t N = Random() % 7; N > 0; --N) Text += Letters[Random() % Letters.size()];
    // Up to six characters hold no number that is out of range but those with a three-digit exponent.
    const bool MayBeTooLarge = Text.find_first_of("eE") != Text.npos;
    const bool IsNumber = IsNumeric(FromUtf8(Text));
    if (IsNumber || !MayBeTooLarge) {
      EXPECT_EQ(NumberStop(Text) == NoPlace, IsNumber) << '"' << Text << '"';
    }
  }
}

TEST(NearestName, FindsWhatWasMeant) {
  const std::vector<std::string> Known = {
      "Area",         "Length (Basic Information)", "Length (Calculation Result)", "Mass",
      "Mass Density", "Volume per Unit Length"};
  EXPECT_EQ(NearestName("Lenght", Known), 1U);
  EXPECT_EQ(NearestName("length (calc", Known), 2U);
  EXPECT_EQ(NearestName("density", Known), 4U);
  EXPECT_EQ(NearestName("mas", Known), 3U);
  EXPECT_EQ(NearestName("volumes per lenght", Known), 5U);
  EXPECT_EQ(NearestName("", Known), 0U);
  EXPECT_EQ(NearestName(std::string(1000000, 'x'), {"a", "b"}), 0U);
}

} // namespace
} // namespace unitlib::app
