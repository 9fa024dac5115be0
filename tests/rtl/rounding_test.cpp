/// Rounding in exact arithmetic, checked against a plain evaluation in big rational numbers.
#include "unitlib/rtl/Errors.h"
#include "unitlib/rtl/ExactRounding.h"
#include "unitlib/rtl/Numbers.h"

#include <boost/multiprecision/cpp_int.hpp>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <random>

namespace unitlib {
namespace {

using TRational = boost::multiprecision::cpp_rational;
using TBigInt = boost::multiprecision::cpp_int;

std::u16string Rounded(double Value, std::u16string_view Step) {
  const auto Result = RoundToMultiple(Value, TExactNumber(Step));
  if (!Result) return u"too many steps";
  std::u16string Text;
  AppendPlain(Text, *Result);
  return Text;
}

struct TRow {
  const char* Name;
  double Value;
  std::u16string_view Step;
  std::u16string_view Text;
};

class RoundingRow : public testing::TestWithParam<TRow> {};

TEST_P(RoundingRow, GivesTheNearestMultiple) {
  EXPECT_EQ(Rounded(GetParam().Value, GetParam().Step), GetParam().Text);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, RoundingRow,
    testing::Values(TRow{"Down", 2.24, u"0.5", u"2"}, TRow{"Up", 2.26, u"0.5", u"2.5"},
                    TRow{"TieAwayFromZero", 2.5, u"1", u"3"}, TRow{"TieAwayFromZeroOdd", 3.5, u"1", u"4"},
                    TRow{"JustBelowTie", 2.4999999, u"1", u"2"},
                    // 2.675 is stored below the tie, by 1.8e-16 of 267.5: near enough to count as the half.
                    TRow{"NearTieCountsAsHalf", 2.675, u"0.01", u"2.68"},
                    // 1.1e-12 below the half is too far.
                    TRow{"OutsideTolerance", 0.4999999999989, u"1", u"0"},
                    TRow{"InsideTolerance", 0.4999999999991, u"1", u"1"},
                    // Exact ties of large values, where 64-bit floating point loses them.
                    TRow{"LargeTie", 1234567.8125, u"0.001", u"1234567.813"},
                    TRow{"LargerTie", 123456789.0625, u"0.001", u"123456789.063"},
                    TRow{"Thousand", 1500, u"1000", u"2000"},
                    TRow{"ThousandDown", 1499.999, u"1000", u"1000"},
                    TRow{"BinaryStep", 0.0390625, u"0.015625", u"0.046875"}, TRow{"Third", 1, u"0.3", u"0.9"},
                    TRow{"NegativeStep", 2.26, u"-0.5", u"2.5"}, TRow{"Exponent", 2.26, u"5e-1", u"2.5"},
                    TRow{"BlanksAround", 2.26, u" 0.5 ", u"2.5"}, TRow{"Zero", 0, u"0.001", u"0"},
                    TRow{"CutToFifteenDigits", 999999999999.9996, u"0.001", u"1000000000000"},
                    TRow{"LargestCount", 9.2233720368547748e18, u"1", u"9223372036854770000"},
                    TRow{"TooManySteps", 9.3e18, u"1", u"too many steps"},
                    TRow{"TooManySmallSteps", 1e10, u"1e-9", u"too many steps"},
                    TRow{"StepAboveValue", 3, u"1e300", u"0"},
                    TRow{"LongStepText", 1, u"0.33333333333333333333333333333333333", u"1"}),
    [](const auto& Info) { return Info.param.Name; });

TEST(RoundToMultiple, RefusesAStepThatIsNoNumber) {
  EXPECT_THROW(TExactNumber(u"1/16"), EConvertError);
}

/// floor(|x| + 1/2 + 1e-12) as the description of the rule has it.
TBigInt Classic(const TRational& X) {
  const TRational Shifted = X + TRational(1, 2) + TRational(1, 1'000'000'000'000);
  return numerator(Shifted) / denominator(Shifted);
}

TRational Power(int Exponent) {
  const TBigInt Value = boost::multiprecision::pow(TBigInt(10), static_cast<unsigned>(std::abs(Exponent)));
  return Exponent < 0 ? TRational(1, Value) : TRational(Value);
}

TEST(RoundToMultiple, AgreesWithRationalArithmetic) {
  const std::u16string_view Steps[] = {u"1000",  u"100", u"10",   u"1",   u"0.1",     u"0.01",
                                       u"0.001", u"0.5", u"0.25", u"0.3", u"0.00001", u"7"};
  const TRational StepValues[] = {1000,      100,    10,     1,       {1, 10},     {1, 100},
                                  {1, 1000}, {1, 2}, {1, 4}, {3, 10}, {1, 100000}, 7};
  std::mt19937_64 Random(20261121);
  for (int I = 0; I < 20000; ++I) {
    const auto S = static_cast<size_t>(Random() % std::size(Steps));
    const int Magnitude = static_cast<int>(Random() % 12);
    double Value = std::ldexp(static_cast<double>(Random() >> 11), -53) * std::pow(10.0, Magnitude);
    // Every second value lies on or beside a tie.
    if (I % 2) Value = static_cast<double>(StepValues[S]) * (std::floor(Value) + 0.5);
    if (I % 4 == 3) Value = std::nextafter(Value, I % 8 == 3 ? 0.0 : 1e300);
    const TBigInt Count = Classic(TRational(Value) / StepValues[S]);
    const TRational Exact = Count * StepValues[S];
    const auto Result = RoundToMultiple(Value, TExactNumber(Steps[S]));
    ASSERT_TRUE(Result) << Value;
    const TRational Shown = TRational(Result->Mantissa) * Power(Result->Exponent);
    // At most 15 digits, so the text may differ from the multiple by half a unit of its last digit.
    const TRational Error = abs(Shown - Exact) * 2;
    TRational LastDigit = 1;
    if (Exact != 0) {
      while (Exact >= LastDigit * Power(15)) LastDigit *= 10;
      while (Exact < LastDigit * Power(14)) LastDigit /= 10;
    }
    ASSERT_LE(Error, LastDigit) << Value << " " << S;
    if (denominator(TRational(Exact / LastDigit)) == 1) {
      ASSERT_EQ(Shown, Exact) << Value << " " << S;
    }
  }
}

struct TFractionRow {
  const char* Name;
  double Inches;
  std::u16string_view Numerator, Denominator;
  std::int64_t Whole, StepsPerOne, Steps;
};

class FractionRow : public testing::TestWithParam<TFractionRow> {};

TEST_P(FractionRow, IsSplit) {
  const auto& Row = GetParam();
  const TFractionSplit Split =
      SplitByFraction(Row.Inches, TExactNumber(Row.Numerator), TExactNumber(Row.Denominator));
  EXPECT_EQ(Split.Whole, Row.Whole);
  EXPECT_EQ(Split.StepsPerOne, Row.StepsPerOne);
  EXPECT_EQ(std::max<std::int64_t>(Split.Steps, 0), Row.Steps);
}

INSTANTIATE_TEST_SUITE_P(Rows, FractionRow,
                         testing::Values(TFractionRow{"Half", 2.5, u"1", u"16", 2, 16, 8},
                                         TFractionRow{"CarryToWhole", 2.97, u"1", u"16", 3, 16, 0},
                                         TFractionRow{"Tie", 1.0 / 32, u"1", u"16", 0, 16, 1},
                                         TFractionRow{"BelowTie", 0.03, u"1", u"16", 0, 16, 0},
                                         TFractionRow{"Finest", 2 + 1.0 / 256, u"1", u"256", 2, 256, 1},
                                         TFractionRow{"WholeInches", 66.5, u"1", u"1", 67, 1, 0},
                                         TFractionRow{"SixInches", 66.5, u"6", u"1", 66, 0, 0},
                                         TFractionRow{"FiveLosesNothing", 23, u"5", u"1", 25, 0, 0},
                                         TFractionRow{"TenLosesNothing", 26, u"10", u"1", 30, 0, 0},
                                         TFractionRow{"Feet", 66.5, u"12", u"1", 72, 0, 0},
                                         TFractionRow{"Thirds", 1.7, u"1", u"3", 1, 3, 2},
                                         TFractionRow{"DecimalStep", 2.26, u"0.5", u"1", 2, 2, 1},
                                         TFractionRow{"SmallTie", 66.5, u"1", u"1", 67, 1, 0}),
                         [](const auto& Info) { return Info.param.Name; });

TEST(SplitByFraction, AgreesWithRationalArithmetic) {
  const std::pair<int, int> Steps[] = {{12, 1}, {6, 1},  {5, 1},   {1, 1},   {1, 2}, {1, 4},  {1, 8}, {1, 16},
                                       {1, 32}, {1, 64}, {1, 128}, {1, 256}, {1, 3}, {3, 16}, {1, 10}};
  std::mt19937_64 Random(20261122);
  for (int I = 0; I < 20000; ++I) {
    const auto [Num, Den] = Steps[Random() % std::size(Steps)];
    double Value =
        std::ldexp(static_cast<double>(Random() >> 11), -53) * std::pow(10.0, static_cast<int>(Random() % 8));
    if (I % 2) Value = (std::floor(Value) + 0.5) * Num / Den;
    if (I % 4 == 3) Value = std::nextafter(Value, I % 8 == 3 ? 0.0 : 1e300);
    const TBigInt Count = Classic(TRational(Value) * Den / Num);
    const TBigInt Whole = Count * Num / Den;
    const int PerOne = Den / Num;
    const TRational Rest = (TRational(Value) - Whole) * PerOne;
    const TBigInt Part = Rest > 0 ? Classic(Rest) : TBigInt(0);
    const TFractionSplit Split =
        SplitByFraction(Value, TExactNumber(IntToStr(Num)), TExactNumber(IntToStr(Den)));
    ASSERT_EQ(Split.Whole, Whole) << Value << " " << Num << "/" << Den;
    ASSERT_EQ(Split.StepsPerOne, PerOne);
    ASSERT_EQ(std::max<std::int64_t>(Split.Steps, 0), Part) << Value << " " << Num << "/" << Den;
  }
}

TEST(SplitByFraction, RefusesWhatDoesNotFit) {
  EXPECT_THROW(SplitByFraction(1e19, TExactNumber(u"1"), TExactNumber(u"1")), ERangeError);
  EXPECT_THROW(SplitByFraction(1e18, TExactNumber(u"1"), TExactNumber(u"256")), ERangeError);
  EXPECT_THROW(TruncQuotient(TExactNumber(u"1e300"), TExactNumber(u"1")), ERangeError);
  EXPECT_EQ(TruncQuotient(TExactNumber(u"-7"), TExactNumber(u"2")), -3);
}

TEST(RoundClassic, GoesAwayFromZeroAtTheHalf) {
  EXPECT_EQ(RoundClassicToInt64(2.5), 3);
  EXPECT_EQ(RoundClassicToInt64(-2.5), -3);
  EXPECT_EQ(RoundClassicToInt64(0.4999999999995), 1);
  EXPECT_EQ(RoundClassicToInt64(0.49999999999), 0);
  EXPECT_EQ(RoundClassicToInt64(9007199254740993.0), 9007199254740992); // no half left at this size
  EXPECT_EQ(RoundClassicToInt64(-9.2233720368547748e18), -9223372036854774784);
  EXPECT_THROW(RoundClassicToInt64(9.2233720368547758e18), ERangeError);
  EXPECT_THROW(RoundClassicToInt64(std::nan("")), ERangeError);
}

/// The quick ways against the C library, for values around the half of the 15th digit above all.
TEST(Decimal, AgreesWithTheCLibrary) {
  constexpr unsigned Seed = 20261123;
  std::mt19937_64 Random(Seed);
  int Cuts = 0;
  for (int I = 0; I < 200'000; ++I) {
    const auto Digits =
        static_cast<double>(Random() % 1'000'000'000'000'000 + (I % 2 ? 0 : 100'000'000'000'000));
    double Value = (Digits + (I % 3 ? 0.5 : 0)) / std::pow(10.0, static_cast<double>(Random() % 21));
    for (auto Steps = Random() % 4; Steps > 0; --Steps) Value = std::nextafter(Value, I % 5 < 3 ? 0.0 : 1e16);
    char Text[40];
    std::snprintf(Text, sizeof Text, "%.14e", Value);
    const double Expected = std::strtod(Text, nullptr);
    EXPECT_EQ(StrToFloat(FloatToStr(Value)), Expected) << Text << ", seed " << Seed;
    double Cut = 0;
    if (!CutTo15Digits(Value, Cut)) continue;
    EXPECT_EQ(Cut, Expected) << Text << ", seed " << Seed;
    ++Cuts;
  }
  EXPECT_GT(Cuts, 100'000);
}

TEST(Decimal, IsCutQuicklyWithinItsRange) {
  double Cut = 7;
  for (const double Value : {0.0, 9.99e-6, 1e15, 1e300}) EXPECT_FALSE(CutTo15Digits(Value, Cut)) << Value;
  EXPECT_EQ(Cut, 7);
  EXPECT_TRUE(CutTo15Digits(0.1 + 0.2, Cut));
  EXPECT_EQ(Cut, 0.3);
  EXPECT_TRUE(CutTo15Digits(999'999'999'999'999.9, Cut)); // rounds up to one digit more
  EXPECT_EQ(Cut, 1e15);
}

TEST(Decimal, KeepsFifteenDigitsTiesToEven) {
  auto Text = [](TDecimal15 Value) {
    std::u16string Result;
    AppendPlain(Result, Value);
    return Result;
  };
  EXPECT_EQ(Text(ToDecimal15(std::uint64_t{1234567890123455}, 0)), u"1234567890123460");
  EXPECT_EQ(Text(ToDecimal15(std::uint64_t{1234567890123445}, 0)), u"1234567890123440");
  EXPECT_EQ(Text(ToDecimal15(std::string_view("12345678901234450000000000000000000001"), -22)),
            u"1234567890123450");
  EXPECT_EQ(Text(ToDecimal15(std::string_view("12345678901234450000000000000000000000"), -22)),
            u"1234567890123440");
  EXPECT_EQ(Text(ToDecimal15(std::uint64_t{9999999999999999999U}, -3)), u"10000000000000000");
  EXPECT_EQ(Text(ToDecimal15(std::string_view("000"), 5)), u"0");
}

} // namespace
} // namespace unitlib
