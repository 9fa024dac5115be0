#include "tests/support/Settings.h"
#include "unitlib/rtl/Errors.h"
#include "unitlib/rtl/Numbers.h"
#include "unitlib/rtl/Text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace unitlib {
namespace {

// ---------------------------------------------------------------- number texts

struct TNumberRow {
  const char* Name;
  std::u16string Text;
  bool Ok;
  double Value = 0;
};

class NumberText : public testing::TestWithParam<TNumberRow> {};

TEST_P(NumberText, IsReadOrRefused) {
  const auto& [Name, Text, Ok, Value] = GetParam();
  EXPECT_EQ(IsNumeric(Text), Ok);
  double Read = -7;
  EXPECT_EQ(TryStrToFloat(Text, Read), Ok);
  EXPECT_EQ(Read, Ok ? Value : -7);
  if (Ok)
    EXPECT_EQ(StrToFloat(Text), Value);
  else
    EXPECT_THROW(StrToFloat(Text), EConvertError);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, NumberText,
    testing::Values(
        TNumberRow{"Integer", u"12", true, 12}, TNumberRow{"Decimal", u"2.5", true, 2.5},
        TNumberRow{"NoIntegerPart", u".5", true, 0.5}, TNumberRow{"NoFraction", u"5.", true, 5},
        TNumberRow{"PointAlone", u".", false}, TNumberRow{"Empty", u"", false},
        TNumberRow{"BlanksOnly", u"   ", false}, TNumberRow{"BlanksAround", u"  12 ", true, 12},
        TNumberRow{"BlankInside", u"1 2", false}, TNumberRow{"TabBefore", u"\t12", false},
        TNumberRow{"LineEndBehind", u"12\n", false}, TNumberRow{"NonBreakingBlank", u"12\u00A0", false},
        TNumberRow{"Minus", u"-3", true, -3}, TNumberRow{"Plus", u"+3", true, 3},
        TNumberRow{"TwoSigns", u"--3", false}, TNumberRow{"MixedSigns", u"+-3", false},
        TNumberRow{"BlankBehindSign", u"- 3", false}, TNumberRow{"SignAlone", u"-", false},
        TNumberRow{"SignAndPoint", u"-.", false}, TNumberRow{"Exponent", u"1.5e3", true, 1500},
        TNumberRow{"ExponentUpper", u"1E-3", true, 0.001}, TNumberRow{"ExponentPlus", u"1e+3", true, 1000},
        TNumberRow{"ExponentWithoutDigits", u"1e", false}, TNumberRow{"ExponentSignOnly", u"1e+", false},
        TNumberRow{"ExponentBlank", u"1e 3", false}, TNumberRow{"ExponentFraction", u"1e1.5", false},
        TNumberRow{"ExponentAlone", u"e5", false}, TNumberRow{"Comma", u"1,234", false},
        TNumberRow{"TwoPoints", u"1.2.3", false}, TNumberRow{"Inf", u"inf", false},
        TNumberRow{"Infinity", u"infinity", false}, TNumberRow{"Nan", u"nan", false},
        TNumberRow{"Hexadecimal", u"0x10", false}, TNumberRow{"Letters", u"abc", false},
        TNumberRow{"TooLarge", u"1e400", false}, TNumberRow{"TooLargeNegative", u"-1e400", false},
        TNumberRow{"TooLargeByDigits", std::u16string(310, u'9'), false},
        TNumberRow{"LargestDouble", u"1.7976931348623157e308", true, std::numeric_limits<double>::max()},
        TNumberRow{"BelowSmallest", u"1e-400", true, 0},
        TNumberRow{"HugeExponentOfZero", u"0e999999999999", true, 0},
        TNumberRow{"HugeNegativeExponent", u"1e-99999999999999999999", true, 0},
        TNumberRow{"HugeExponent", u"1e99999999999999999999", false},
        TNumberRow{"ManyLeadingZeros", std::u16string(400, u'0') + u"5", true, 5},
        TNumberRow{"ManyDecimals", u"0." + std::u16string(400, u'0') + u"5e401", true, 5},
        TNumberRow{"FullWidthDigit", u"\uFF15", false}, TNumberRow{"ArabicDigit", u"\u0665", false},
        TNumberRow{"LoneSurrogate", u"5\xD800", false}, TNumberRow{"Nul", std::u16string(u"5\0", 2), false},
        TNumberRow{"Minuszero", u"-0", true, -0.0}),
    [](const auto& Info) { return Info.param.Name; });

TEST(NumberTextZero, IsTriedByDigitsNotByValue) {
  EXPECT_TRUE(ReadNumber(u"0.000").IsZero);
  EXPECT_TRUE(ReadNumber(u"0e5").IsZero);
  EXPECT_FALSE(ReadNumber(u"1e-400").IsZero);
  EXPECT_FALSE(ReadNumber(u"0.1").IsZero);
}

TEST(NumberTextError, CarriesTheText) {
  try {
    StrToFloat(u"12 ft");
    FAIL() << "no error";
  } catch (const EConvertError& Error) {
    EXPECT_EQ(Error.Text(), u"12 ft");
    EXPECT_STREQ(Error.what(), "\"12 ft\" is not a number");
  }
}

// ---------------------------------------------------------------- integers

struct TIntegerRow {
  const char* Name;
  std::u16string Text;
  bool Ok64;
  bool Ok32;
};

class IntegerText : public testing::TestWithParam<TIntegerRow> {};

TEST_P(IntegerText, IsReadOrRefused) {
  EXPECT_EQ(IsInt64(GetParam().Text), GetParam().Ok64);
  EXPECT_EQ(IsInteger(GetParam().Text), GetParam().Ok32);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, IntegerText,
    testing::Values(
        TIntegerRow{"Plain", u"12", true, true}, TIntegerRow{"Minus", u"-12", true, true},
        TIntegerRow{"Plus", u"+12", true, true}, TIntegerRow{"LeadingBlanks", u"  12", true, true},
        TIntegerRow{"BlankBehind", u"12 ", false, false}, TIntegerRow{"Empty", u"", false, false},
        TIntegerRow{"SignAlone", u"-", false, false}, TIntegerRow{"Decimal", u"1.0", false, false},
        TIntegerRow{"Max32", u"2147483647", true, true}, TIntegerRow{"Above32", u"2147483648", true, false},
        TIntegerRow{"Min32", u"-2147483648", true, true}, TIntegerRow{"Below32", u"-2147483649", true, false},
        TIntegerRow{"Max64", u"9223372036854775807", true, false},
        TIntegerRow{"Above64", u"9223372036854775808", false, false},
        TIntegerRow{"Min64", u"-9223372036854775808", true, false},
        TIntegerRow{"Below64", u"-9223372036854775809", false, false},
        TIntegerRow{"LeadingZeros", u"000000000000000000000000012", true, true}),
    [](const auto& Info) { return Info.param.Name; });

TEST(IntegerTextValue, KeepsTheLimits) {
  std::int64_t Value = 0;
  ASSERT_TRUE(TryStrToInt64(u"-9223372036854775808", Value));
  EXPECT_EQ(Value, std::numeric_limits<std::int64_t>::min());
  ASSERT_TRUE(TryStrToInt64(u"9223372036854775807", Value));
  EXPECT_EQ(Value, std::numeric_limits<std::int64_t>::max());
}

// ---------------------------------------------------------------- number to text

struct TTextRow {
  const char* Name;
  double Value;
  std::u16string General;
  std::u16string Plain;
};

class FloatText : public testing::TestWithParam<TTextRow> {};

TEST_P(FloatText, HasFifteenDigits) {
  EXPECT_EQ(FloatToStr(GetParam().Value), GetParam().General);
  EXPECT_EQ(FloatToPlainStr(GetParam().Value), GetParam().Plain);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, FloatText,
    testing::Values(TTextRow{"Zero", 0.0, u"0", u"0"}, TTextRow{"MinusZero", -0.0, u"0", u"0"},
                    TTextRow{"Two", 2, u"2", u"2"}, TTextRow{"Decimal", 2.5, u"2.5", u"2.5"},
                    TTextRow{"Sum", 0.1 + 0.2, u"0.3", u"0.3"},
                    TTextRow{"Third", 1.0 / 3, u"0.333333333333333", u"0.333333333333333"},
                    TTextRow{"Negative", -1234.5, u"-1234.5", u"-1234.5"},
                    TTextRow{"Small", 1.5e-7, u"1.5E-7", u"0.00000015"},
                    TTextRow{"SmallestFixed", 0.00001, u"0.00001", u"0.00001"},
                    TTextRow{"BelowSmallestFixed", 0.0000099, u"9.9E-6", u"0.0000099"},
                    TTextRow{"RoundsUpToFixed", 0.0000099999999999999999, u"0.00001", u"0.00001"},
                    TTextRow{"FifteenDigits", 999999999999999.0, u"999999999999999", u"999999999999999"},
                    TTextRow{"SixteenDigits", 1e15, u"1E15", u"1000000000000000"},
                    TTextRow{"RoundsUpToSixteen", 999999999999999.9, u"1E15", u"1000000000000000"},
                    TTextRow{"HundredTrillion", 123456789012345.0, u"123456789012345", u"123456789012345"},
                    TTextRow{"Large", 1e20, u"1E20", u"100000000000000000000"},
                    TTextRow{"LargeMantissa", 1.25e20, u"1.25E20", u"125000000000000000000"},
                    TTextRow{"LargeExponent", 1.5e100, u"1.5E100", u"15" + std::u16string(99, u'0')},
                    TTextRow{"NegativeSmall", -2.5e-10, u"-2.5E-10", u"-0.00000000025"},
                    TTextRow{"TieToEvenUp", 1234567890123455.0, u"1.23456789012346E15", u"1234567890123460"},
                    TTextRow{"TieToEvenDown", 1234567890123445.0, u"1.23456789012344E15",
                             u"1234567890123440"},
                    TTextRow{"Denormal", 4.9406564584124654e-324, u"4.94065645841247E-324",
                             u"0." + std::u16string(323, u'0') + u"494065645841247"}),
    [](const auto& Info) { return Info.param.Name; });

TEST(FloatTextError, RefusesWhatIsNotFinite) {
  const double Infinity = std::numeric_limits<double>::infinity();
  for (double Value : {Infinity, -Infinity, std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_THROW(FloatToStr(Value), ERangeError);
    EXPECT_THROW(FloatToPlainStr(Value), ERangeError);
    EXPECT_THROW(FixedToStr(Value, 5), ERangeError);
  }
}

TEST(FixedText, HasTheAskedDecimals) {
  EXPECT_EQ(FixedToStr(1.125, 5), u"1.12500");
  EXPECT_EQ(FixedToStr(-1e-7, 5), u"-0.00000");
  EXPECT_EQ(FixedToStr(2.5, 0), u"2"); // a tie goes to the even digit
  EXPECT_EQ(FixedToStr(1e20, 1), u"100000000000000000000.0");
}

// ---------------------------------------------------------------- texts

TEST(Trim, RemovesEverythingUpToTheBlank) {
  EXPECT_EQ(Trim(u" \t\r\n\x01 a b \x1F "), u"a b");
  EXPECT_EQ(Trim(u"\u00A0a"), u"\u00A0a");
  EXPECT_EQ(Trim(u" \t "), u"");
}

TEST(ReadUtf8Number, ReadsBytesAsTheText) {
  for (const auto& [Text, Value] :
       {std::pair{"2743.2", 2743.2}, {"-5", -5.0}, {"1e3", 1000.0}, {"0.1", 0.1}}) {
    EXPECT_TRUE(ReadUtf8Number(Text).Ok) << Text;
    EXPECT_EQ(ReadUtf8Number(Text).Value, Value) << Text;
  }
  for (const char* Text : {"", "5x", "\xC3\xA4", "\xC3", "--5"})
    EXPECT_FALSE(ReadUtf8Number(Text).Ok) << Text;
}

TEST(SameText, FoldsAsciiLettersOnly) {
  EXPECT_TRUE(SameText(u"None", u"nONE"));
  EXPECT_FALSE(SameText(u"None", u"Non"));
  EXPECT_FALSE(SameText(u"\u00E9", u"\u00C9"));
  EXPECT_FALSE(SameText(u"[", u"{")); // 32 apart like letters, but none
  EXPECT_TRUE(EndsWithText(u"12 SF", u"sf"));
  EXPECT_FALSE(EndsWithText(u"F", u"SF"));
}

TEST(LeftAndRight, CutByCharacters) {
  EXPECT_EQ(LeftStr(u"abc", 2), u"ab");
  EXPECT_EQ(LeftStr(u"abc", 9), u"abc");
  EXPECT_EQ(LeftStr(u"abc", -1), u"");
  EXPECT_EQ(RightStr(u"abc", 2), u"bc");
  EXPECT_EQ(RightStr(u"abc", 9), u"abc");
  EXPECT_EQ(ReplaceStr(u"aXXb", u"X", u"yy"), u"ayyyyb");
}

TEST(Utf8, GoesBothWays) {
  const std::u16string Text = u"A\u00E9\u4E2D\xD83D\xDE00";
  EXPECT_EQ(ToUtf8(Text), "A\xC3\xA9\xE4\xB8\xAD\xF0\x9F\x98\x80");
  EXPECT_EQ(FromUtf8(ToUtf8(Text)), Text);
  EXPECT_TRUE(IsUtf8(ToUtf8(Text)));
}

TEST(Utf8, ReplacesWhatIsMalformed) {
  EXPECT_EQ(ToUtf8(u"a\xD800z"), "a\xEF\xBF\xBDz");
  EXPECT_EQ(ToUtf8(u"a\xDC00"), "a\xEF\xBF\xBD");
  for (const char* Bad :
       {"\xC0\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\x80", "\xE4\xB8", "\xF0\x82\x82\xAC"}) {
    EXPECT_FALSE(IsUtf8(Bad)) << Bad;
    EXPECT_NE(FromUtf8(Bad).find(u'\uFFFD'), std::u16string::npos) << Bad;
  }
}

TEST(SameValue, HasAnAbsoluteTolerance) {
  EXPECT_TRUE(SameValue(1e-12, 0, 1e-12));
  EXPECT_FALSE(SameValue(1.1e-12, 0, 1e-12));
  EXPECT_FALSE(SameValue(std::numeric_limits<double>::quiet_NaN(), 0, 1e-12));
}

} // namespace
} // namespace unitlib
