/// Recognising and reading imperial texts.
#include "tests/support/Settings.h"
#include "unitlib/convert/ImperialText.h"
#include "unitlib/rtl/Numbers.h"
#include "unitlib/rtl/PerlRegEx.h"
#include "unitlib/rtl/Text.h"

#include <gtest/gtest.h>

#include <random>

namespace unitlib {
namespace {

struct TRow {
  const char* Name;
  std::u16string Text;
  bool Accepted;
  double Inches = 0;
};

class ImperialShape : public testing::TestWithParam<TRow> {};

TEST_P(ImperialShape, IsRecognisedAndRead) {
  EXPECT_EQ(IsFraction(GetParam().Text), GetParam().Accepted);
  if (!GetParam().Accepted) return;
  EXPECT_DOUBLE_EQ(GetInchNumByFraction(GetParam().Text), GetParam().Inches);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, ImperialShape,
    testing::Values(
        TRow{"Integer", u"12", true, 12}, TRow{"Minus", u"-12", true, -12}, TRow{"Plus", u"+12", true, 12},
        TRow{"Feet", u"5'", true, 60}, TRow{"Inches", u"6\"", true, 6}, TRow{"Fraction", u"3/4", true, 0.75},
        TRow{"NegativeFraction", u"-3/4", true, -0.75}, TRow{"Mixed", u"6 3/4", true, 6.75},
        TRow{"FeetInches", u"5'6", true, 66}, TRow{"FeetInchesMark", u"5'6\"", true, 66},
        TRow{"FeetMixed", u"5'6 3/4", true, 66.75}, TRow{"FeetMixedMark", u"5'6 1/2\"", true, 66.5},
        TRow{"FeetFraction", u"5'3/4", true, 60.75}, TRow{"Dash", u"5-6", true, 66},
        TRow{"DashMixed", u"5-6 3/4", true, 66.75}, TRow{"DashFraction", u"5-3/4", true, 60.75},
        TRow{"DashMark", u"5-6\"", false}, TRow{"DashMixedMark", u"5-6 3/4\"", false},
        TRow{"NegativeFeet", u"-5'6\"", true, -66}, TRow{"BlanksAroundMark", u"5 ' 6", true, 66},
        TRow{"BlanksEverywhere", u" 5 ' 6  1 / 2 \" ", true, 66.5}, TRow{"Tabs", u"5'\t6\n1/2\"", true, 66.5},
        TRow{"BlankBehindSign", u"- 5'", true, -60}, TRow{"ZeroDenominator", u"3/0", false},
        TRow{"DenominatorWithLeadingZero", u"1/05", false},
        TRow{"ZeroDenominatorInside", u"5'6 1/0\"", false},
        TRow{"TwoBlanksBetweenIntegers", u"1 2 3/4", false}, TRow{"TwoIntegers", u"5 6", false},
        TRow{"FeetTwoIntegers", u"5'6 7\"", false}, TRow{"Decimal", u"2.5", false},
        TRow{"DecimalFeet", u"2.5'", false}, TRow{"Empty", u"", false}, TRow{"Blank", u" ", false},
        TRow{"MarkAlone", u"'", false}, TRow{"InchMarkAlone", u"\"", false}, TRow{"SignAlone", u"-", false},
        TRow{"TwoSigns", u"--5", false}, TRow{"TwoFootMarks", u"5''", false},
        TRow{"FootAndInchMark", u"5'\"", false}, TRow{"DashBehindMark", u"10'-6\"", false},
        TRow{"MixedByDash", u"1-1/2\"", false}, TRow{"Letters", u"5ft", false},
        TRow{"Comma", u"1,000'", false}, TRow{"FifteenDigits", u"123456789012345\"", true, 123456789012345},
        TRow{"SixteenDigits", u"1234567890123456\"", false},
        TRow{"SixteenDigitFeet", u"1234567890123456'6\"", false}, TRow{"TrailingFootMark", u"6 1/2'", false},
        TRow{"FullWidthDigit", u"\uFF15'", false}, TRow{"Nul", std::u16string(u"5'\0", 3), false},
        TRow{"LoneSurrogate", u"5'\xD800", false}, TRow{"VulgarFraction", u"\u00BE\"", false},
        TRow{"Exponent", u"1e5", false}, TRow{"ImproperFraction", u"13/16", true, 0.8125},
        TRow{"LargeFraction", u"9/2\"", true, 4.5}),
    [](const auto& Info) { return Info.param.Name; });

TEST(IdentifiableForm, KeepsOneBlankBetweenDigitsOnly) {
  EXPECT_EQ(GetIdentifiableForm(u"5 ' 6  1 / 2"), u"5'6 1/2");
  EXPECT_EQ(GetIdentifiableForm(u"1 2 3/4"), u"1 2 3/4");
  EXPECT_EQ(GetIdentifiableForm(u"\t5\r\n6\v"), u"5 6");
  EXPECT_EQ(GetIdentifiableForm(u"a b"), u"ab");
  EXPECT_EQ(GetIdentifiableForm(u"  "), u"");
  EXPECT_EQ(GetIdentifiableForm(u"5\u00A06"), u"5\u00A06");
}

TEST(StandardFormat, IsExact) {
  EXPECT_TRUE(IsStandardFormat(u"5'6 1/2\""));
  EXPECT_TRUE(IsStandardFormat(u"-0'0 3/4\""));
  EXPECT_FALSE(IsStandardFormat(u"+5'6 1/2\""));
  EXPECT_FALSE(IsStandardFormat(u"5' 6 1/2\""));
  EXPECT_FALSE(IsStandardFormat(u"x5'6 1/2\""));
  EXPECT_FALSE(IsStandardFormat(u"5'6 1/2\" "));
  EXPECT_TRUE(IsStandardFormat(std::u16string(1000, u'7') + u"'6 1/2\"")) << "no limit of digits here";
}

TEST(StandardFormat, IsBuiltFromEveryShape) {
  EXPECT_EQ(GetFractionStandardFormat(u"6\""), u"0'6 0/1\"");
  EXPECT_EQ(GetFractionStandardFormat(u"5'6 1/2\""), u"5'6 1/2\"");
  EXPECT_EQ(GetFractionStandardFormat(u"-3/4"), u"-0'0 3/4\"");
  EXPECT_EQ(GetFractionStandardFormat(u"+5'"), u"5'0 0/1\"");
  EXPECT_EQ(GetFractionStandardFormat(u"5-6 3/4"), u"5'6 3/4\"");
  EXPECT_EQ(GetFractionStandardFormat(u"12"), u"0'12 0/1\"");
  EXPECT_EQ(GetFractionStandardFormat(u""), u"0' 0/1\"");
}

TEST(InchNumber, IsZeroForWhatCannotBeRead) {
  EXPECT_EQ(GetInchNumByFraction(u"abc"), 0);
  EXPECT_EQ(GetInchNumByFraction(u""), 0);
  EXPECT_EQ(GetInchNumByFraction(u"5'6 1/0\""), 0);
  EXPECT_EQ(GetInchNumByFraction(u"9223372036854775808'0 0/1\""), 0) << "does not fit 64 bits";
  EXPECT_DOUBLE_EQ(GetInchNumByFraction(u"9223372036854775807'0 0/1\""), 9223372036854775807.0 * 12);
  EXPECT_EQ(GetInchNumByFraction(u"2.5\""), 0);
}

TEST(ImperialNumber, TakesDecimalsWithAMark) {
  EXPECT_TRUE(IsImperialNum(u"2.5'", false));
  EXPECT_TRUE(IsImperialNum(u"-2.5e1\"", false));
  EXPECT_FALSE(IsImperialNum(u"2.5", false));
  EXPECT_TRUE(IsImperialNum(u"12", false));
  EXPECT_FALSE(IsImperialNum(u"12", true));
  EXPECT_TRUE(IsImperialNum(u"12'", true));
  EXPECT_TRUE(IsImperialNum(u"1234567890123456'", false)) << "a number with a mark, though no shape";
  EXPECT_FALSE(IsImperialNum(u"2.5' ", false));
  EXPECT_FALSE(IsImperialNum(u"'", false));
  EXPECT_TRUE(IsANum(u"2.5"));
  EXPECT_TRUE(IsANum(u"5'6"));
  EXPECT_FALSE(IsANum(u"abc"));
  EXPECT_TRUE(IsEndWithSymbol(u"5'"));
  EXPECT_FALSE(IsEndWithSymbol(u""));
}

/// The table of shapes, tried row by row as it is defined.
bool MatchesTable(const std::u16string& Text) {
  static const auto Rows = [] {
    const std::u16string Signs[] = {u"-", u"", u"\\+"};
    const std::u16string Singles[] = {u"\\d{1,15}", u"\\d{1,15}'", u"\\d{1,15}\""};
    const std::u16string Feet[] = {u"\\d{1,15}'", u"\\d{1,15}-", u""};
    const std::u16string Inches[] = {
        u"\\d{1,15}",   u"\\d{1,15}/\\d{1,15}",   u"\\d{1,15} \\d{1,15}/\\d{1,15}",
        u"\\d{1,15}\"", u"\\d{1,15}/\\d{1,15}\"", u"\\d{1,15} \\d{1,15}/\\d{1,15}\""};
    std::vector<std::unique_ptr<TPerlRegEx>> Result;
    for (const auto& Sign : Signs)
      for (const auto& Single : Singles) Result.push_back(std::make_unique<TPerlRegEx>(Sign + Single, true));
    for (const auto& Sign : Signs)
      for (const auto& Foot : Feet)
        for (const auto& Inch : Inches)
          if (Foot.empty() || Foot.back() != u'-' || Inch.back() != u'"')
            Result.push_back(std::make_unique<TPerlRegEx>(Sign + Foot + Inch, true));
    return Result;
  }();
  static const TPerlRegEx Zero(u"\\d+/0");
  const std::u16string Form = GetIdentifiableForm(Text);
  if (Zero.Match(Form)) return false;
  return std::any_of(Rows.begin(), Rows.end(), [&Form](const auto& Row) { return Row->MatchesWhole(Form); });
}

TEST(ImperialShapes, AreTheTableTriedRowByRow) {
  constexpr std::u16string_view Alphabet = u"0123456789''\"\"//  --+.a1111";
  std::mt19937 Random(20261121);
  int Accepted = 0;
  for (int I = 0; I < 30000; ++I) {
    std::u16string Text;
    const size_t Length = 1 + Random() % 9;
    while (Text.size() < Length) Text.push_back(Alphabet[Random() % Alphabet.size()]);
    if (I % 50 == 0) Text.insert(Text.size() / 2, std::u16string(13 + Random() % 4, u'7'));
    ASSERT_EQ(IsFraction(Text), MatchesTable(Text)) << ToUtf8(Text);
    Accepted += IsFraction(Text);
  }
  EXPECT_GT(Accepted, 1000) << "the texts must reach both answers";
}

// ---------------------------------------------------------------- numbers inside expressions

struct TReplaceRow {
  const char* Name;
  std::u16string_view Text;
  std::u16string_view Result; // in millimetres
};

class Replaced : public testing::TestWithParam<TReplaceRow> {};

TEST_P(Replaced, ImperialNumbersBecomePlain) {
  EXPECT_EQ(ReplaceImperialNumbers(GetParam().Text, 0, 1000), GetParam().Result);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Replaced,
    testing::Values(
        TReplaceRow{"Sum", u"3'6\"+2", u"1066.8+2"}, TReplaceRow{"Alone", u"5'6 1/2\"", u"1689.1"},
        TReplaceRow{"PlainStays", u"1/2+2.5", u"1/2+2.5"},
        TReplaceRow{"Brackets", u"(5'+1\")*2", u"(1524+25.4)*2"},
        TReplaceRow{"BlankBelongsToTheToken", u"5' + 1\" ", u"1524+ 25.4"},
        TReplaceRow{"FractionInches", u"3/4\"+1", u"19.05+1"},
        TReplaceRow{"IntegerJoinsMarkedInteger", u"10/5\"", u"50.8"},
        TReplaceRow{"MixedWithMark", u"6 1/2\"", u"165.1"},
        TReplaceRow{"MixedWithoutMark", u"6 1/2", u"6 1/2"},
        TReplaceRow{"FeetMixedWithoutMark", u"5'6 1/2", u"1689.1"},
        TReplaceRow{"FeetBlankFraction", u"5' 1/2\"", u"1536.7"},
        TReplaceRow{"FeetFraction", u"5'1/2\"", u"1536.7"},
        TReplaceRow{"FeetDivision", u"5'1/2", u"1549.4/2"},
        TReplaceRow{"FeetInchDivision", u"5'6/2", u"1676.4/2"},
        TReplaceRow{"BlankBehindSlash", u"10/ 5\"", u"10/ 127"}, TReplaceRow{"Decimals", u"2.5'*2", u"762*2"},
        TReplaceRow{"DecimalFeetBlank", u"2.5' +2", u"2.5' +2"},
        TReplaceRow{"Mod", u"5'mod2\"", u"1524mod50.8"}, TReplaceRow{"ModUpper", u"5'MOD2\"", u"1524MOD50.8"},
        TReplaceRow{"Power", u"2\"^2", u"50.8^2"}, TReplaceRow{"SlashTwice", u"1/2/4\"", u"1/12.7"},
        TReplaceRow{"Names", u"A+B*2", u"A+B*2"}, TReplaceRow{"Empty", u"", u""},
        TReplaceRow{"Return", u"5'\r6\"", u"1524\r152.4"},
        TReplaceRow{"LetterInToken", u"5'x+6\"", u"5'x+152.4"},
        TReplaceRow{"DashIsAnOperator", u"5-6", u"5-6"}, TReplaceRow{"NegativeFeet", u"-5'6\"", u"-1676.4"},
        TReplaceRow{"OpenBracketInToken", u"5'(6\"", u"5'(6\""}),
    [](const auto& Info) { return Info.param.Name; });

TEST(ReplacedNumbers, StandForFeetInModeTwo) {
  EXPECT_EQ(ReplaceImperialNumbers(u"6\"+2'", 2, 1), u"0.5+2");
  EXPECT_EQ(ReplaceImperialNumbers(u"6\"", 1, 1), u"0.1524");
  EXPECT_EQ(ReplaceImperialNumbers(u"1e308'", 0, 1e10), u"1e308'") << "no number to write";
}

TEST(ImperialTexts, CostNoMoreThanTheirLength) {
  for (char16_t C : {u'7', u' ', u'\'', u'/', u'-', u'"', u'.', u'm'}) {
    const std::u16string Text(1000000, C);
    EXPECT_FALSE(IsFraction(Text));
    EXPECT_FALSE(IsStandardFormat(Text));
    EXPECT_EQ(GetInchNumByFraction(Text), 0);
    EXPECT_EQ(ReplaceImperialNumbers(Text, 0, 1), Text);
    IsANum(Text);
  }
  std::u16string Sum;
  for (int I = 0; I < 100000; ++I) Sum += u"5'6\"/2+";
  EXPECT_GT(ReplaceImperialNumbers(Sum, 0, 1000).size(), 500000U);
}

} // namespace
} // namespace unitlib
