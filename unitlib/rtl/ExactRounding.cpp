#include "unitlib/rtl/ExactRounding.h"

#include "unitlib/rtl/Errors.h"
#include "unitlib/rtl/ExactProduct.h"
#include "unitlib/rtl/Numbers.h"
#include "unitlib/rtl/Text.h"

#include <boost/multiprecision/cpp_int.hpp>

#include <algorithm>
#include <cmath>
#include <limits>

namespace unitlib {
namespace {

// Without expression templates: every step is a number of its own, nothing refers to a temporary.
using TBigInt =
    boost::multiprecision::number<boost::multiprecision::cpp_int_backend<>, boost::multiprecision::et_off>;

constexpr double Tolerance = 1e-12;
constexpr double MaxExact = 4503599627370496.0; // 2^52: below it a double has a fraction to look at
constexpr double ProductError = 4.5e-16;        // relative; two roundings of 2^-53 each, with room
constexpr double MinTooMany = 9.3e18;           // surely above it

[[noreturn]] void RaiseRange(double Value) {
  const std::u16string Text = FloatToStr(Value);
  throw ERangeError(u"Too large to be rounded: " + Text, Text);
}

/// A quotient of big integers, Den > 0.
struct TRatio {
  TBigInt Num;
  TBigInt Den;
};

TRatio operator*(const TRatio& A, const TRatio& B) {
  return {A.Num * B.Num, A.Den * B.Den};
}
TRatio operator/(const TRatio& A, const TRatio& B) {
  TRatio Result{A.Num * B.Den, A.Den * B.Num};
  if (Result.Den < 0) {
    Result.Num = -Result.Num;
    Result.Den = -Result.Den;
  }
  return Result;
}

TBigInt PowerOf10(int Exponent) {
  return boost::multiprecision::pow(TBigInt(10), static_cast<unsigned>(Exponent));
}

TRatio ExactOf(double Value) {
  int Exponent = 0;
  const double Fraction = std::frexp(Value, &Exponent);
  TRatio Result{static_cast<std::int64_t>(std::ldexp(Fraction, 53)), 1};
  Exponent -= 53;
  (Exponent >= 0 ? Result.Num : Result.Den) <<= static_cast<unsigned>(std::abs(Exponent));
  return Result;
}

/// The digits of a number text and the power of ten they are counted in.
struct TDecimalText {
  std::string Digits;
  long Exponent = 0;
  bool Negative = false;
};

TDecimalText ReadDecimal(std::u16string_view Text) {
  constexpr size_t MaxDigits =
      800; // a double has at most 767 digits; more of them change nothing that can be seen
  TDecimalText Result;
  bool BehindPoint = false;
  size_t Pos = 0;
  for (; Pos < Text.size() && Text[Pos] != u'e' && Text[Pos] != u'E'; ++Pos) {
    const char16_t C = Text[Pos];
    if (C == u'-') Result.Negative = true;
    if (C == u'.') BehindPoint = true;
    if (!IsDigit(C)) continue;
    const bool Leading = Result.Digits.empty() && C == u'0';
    const bool Kept = Result.Digits.size() < MaxDigits;
    if (!Leading && Kept) Result.Digits.push_back(static_cast<char>(C));
    Result.Exponent += (Kept ? 0 : 1) - (BehindPoint ? 1 : 0);
  }
  std::u16string_view Exponent = TrimView(Text.substr(std::min(Pos + 1, Text.size())));
  int Power = 0;
  if (TryStrToInt(Exponent, Power)) Result.Exponent += Power;
  while (!Result.Digits.empty() && Result.Digits.back() == '0') {
    Result.Digits.pop_back();
    ++Result.Exponent;
  }
  return Result;
}

TRatio ExactOf(const TExactNumber& Number) {
  const TDecimalText Decimal = ReadDecimal(Number.Text);
  TRatio Result{TBigInt(Decimal.Digits.empty() ? "0" : Decimal.Digits), 1};
  (Decimal.Exponent >= 0 ? Result.Num : Result.Den) *=
      PowerOf10(static_cast<int>(std::abs(Decimal.Exponent)));
  if (Decimal.Negative) Result.Num = -Result.Num;
  return Result;
}

/// floor(|x| + 1/2 + 1e-12) with the sign of x.
TBigInt RoundClassicExact(const TRatio& X) {
  static const TBigInt Unit = PowerOf10(12);
  const TBigInt Rounded = (abs(X.Num) * (2 * Unit) + X.Den * (Unit + 2)) / (X.Den * (2 * Unit));
  return X.Num < 0 ? TBigInt(-Rounded) : Rounded;
}

bool FitsInt64(const TBigInt& Value) {
  return Value >= std::numeric_limits<std::int64_t>::min() &&
         Value <= std::numeric_limits<std::int64_t>::max();
}

std::int64_t ToInt64(const TBigInt& Value, double Shown) {
  if (!FitsInt64(Value)) RaiseRange(Shown);
  return Value.convert_to<std::int64_t>();
}

/// Nearest integer of a value >= 0 of which X + Rest is known up to Error; nothing where that error could
/// decide.
std::optional<std::int64_t> RoundWhenClear(double X, double Rest, double Error) {
  if (!(X < MaxExact)) return std::nullopt;
  const auto Whole = static_cast<std::int64_t>(X);
  const double OffHalf = (X - static_cast<double>(Whole)) - 0.5 + Rest;
  if (std::fabs(OffHalf + Tolerance) <= Error + Tolerance * ProductError) return std::nullopt;
  // With its Rest the value may lie just below Whole or just above the next integer; both are far from a
  // half.
  return Whole + (OffHalf >= -Tolerance ? 1 : 0);
}

bool IsWhole(const TExactNumber& Number) {
  return Number.IsSimple && Number.Scale == 0 && Number.Value > 0 && Number.Mantissa <= 1'000'000;
}

/// The usual case in doubles: small whole numerator and denominator. Nothing where rounding errors could
/// decide.
std::optional<TFractionSplit> SplitWhenClear(double Value, const TExactNumber& Numerator,
                                             const TExactNumber& Denominator) {
  const auto Num = static_cast<std::int64_t>(Numerator.Mantissa),
             Den = static_cast<std::int64_t>(Denominator.Mantissa);
  constexpr double Small = 1e9; // Value x 10^6 and the steps x 10^6 stay within 64 bits
  if (Value >= Small) return std::nullopt;
  const bool PowerOf2 = Num == 1 && (Den & (Den - 1)) == 0; // then the product below is exact
  const double Near = Value * Denominator.Value / Numerator.Value;
  const auto Count = RoundWhenClear(Near, 0, PowerOf2 ? 0.0 : Near * ProductError);
  if (!Count) return std::nullopt;
  TFractionSplit Result;
  Result.Whole = *Count * Num / Den;
  Result.StepsPerOne = Den / Num;
  // Whole is 0 or lies within a step of Value, so the difference is exact.
  const double Rest = Value - static_cast<double>(Result.Whole);
  if (Rest <= 0 || Result.StepsPerOne == 0) return Result;
  const double Part = Rest * static_cast<double>(Result.StepsPerOne);
  const auto Steps = RoundWhenClear(Part, 0, PowerOf2 ? 0.0 : Part * ProductError);
  if (!Steps) return std::nullopt;
  Result.Steps = *Steps;
  return Result;
}

/// Value / Step, rounded; nothing where doubles cannot tell. For a power of ten the product is exact, and
/// ties, which are common among typed values, need no big integers.
std::optional<std::int64_t> CountSteps(double Value, const TExactNumber& Step) {
  constexpr double Least = 1e-200; // the exact product must not underflow
  if (Step.Mantissa == 1 && Value > Least) {
    const TExactProduct Product(Value, PowersOf10[Step.Scale]);
    return RoundWhenClear(Product.Hi, Product.Lo, 1e-25);
  }
  const double Near = Value * PowersOf10[Step.Scale] / static_cast<double>(Step.Mantissa);
  return RoundWhenClear(Near, 0, Near * ProductError);
}

} // namespace

std::optional<TDecimal15> RoundToMultipleExact(double Value, const TExactNumber& Step) {
  const TRatio Exact = ExactOf(Step);
  const TBigInt Count = abs(RoundClassicExact(ExactOf(Value) / Exact));
  if (!FitsInt64(Count)) return std::nullopt;
  const TDecimalText Decimal = ReadDecimal(Step.Text);
  const TBigInt Product = Count * TBigInt(Decimal.Digits);
  return ToDecimal15(Product.str(), static_cast<int>(Decimal.Exponent));
}

bool RoundToMultipleWhenClear(double Value, const TExactNumber& Step, std::uint64_t& Product) noexcept {
  constexpr double Most = 4e14; // count x mantissa is at most the value plus one step, below 10^15
  if (!Step.IsSimple || Step.Mantissa == 0 || Step.Mantissa > static_cast<std::uint64_t>(Most)) return false;
  const double Scaled = Value * PowersOf10[Step.Scale];
  if (!(Scaled < Most)) return false;
  const double Near = Step.Mantissa == 1 ? Scaled : Scaled / static_cast<double>(Step.Mantissa);
  const auto Count = RoundWhenClear(Near, 0, Near * ProductError);
  if (!Count) return false;
  Product = static_cast<std::uint64_t>(*Count) * Step.Mantissa;
  return true;
}

TFractionSplit SplitByFractionExact(double Value, const TExactNumber& Numerator,
                                    const TExactNumber& Denominator, bool WithSteps) {
  const TRatio PerOne = ExactOf(Denominator) / ExactOf(Numerator);
  const TRatio Exact = ExactOf(Value);
  const TBigInt Count = RoundClassicExact(Exact * PerOne);
  ToInt64(Count, Value);
  TFractionSplit Result;
  const TRatio Rounded = TRatio{Count, 1} / PerOne;
  Result.Whole = ToInt64(Rounded.Num / Rounded.Den, Value);
  if (!WithSteps) return Result;
  Result.StepsPerOne = ToInt64(PerOne.Num / PerOne.Den, Value);
  const TRatio Rest{Exact.Num - Exact.Den * Result.Whole, Exact.Den};
  Result.Steps = ToInt64(RoundClassicExact(Rest * TRatio{Result.StepsPerOne, 1}), Value);
  return Result;
}

/// Scaling by a power of two changes no digit, so the one rounding decides both the whole and the steps.
bool SplitByPowerOf2(double Value, int Shift, std::int64_t& Whole, std::int64_t& Steps) noexcept {
  if (!(Value < 1e9)) return false;
  const auto Count = RoundWhenClear(Value * static_cast<double>(std::int64_t{1} << Shift), 0, 0);
  if (!Count) return false;
  Whole = *Count >> Shift;
  Steps = *Count & ((std::int64_t{1} << Shift) - 1);
  return true;
}

/// Digits with at most one point, a sign allowed: then the quotient of two exact doubles is the nearest one.
inline bool TExactNumber::ReadSimple(std::u16string_view NumberText) noexcept {
  constexpr std::uint64_t Limit = 1ULL << 53;
  constexpr std::ptrdiff_t MostDigits = 19; // fit 64 bits
  const char16_t* Next = NumberText.data();
  const char16_t* const End = Next + NumberText.size();
  const bool Negative = Next != End && *Next == u'-';
  if (Negative) ++Next;
  std::uint64_t Digits = 0; // in registers, not in the members: 8 ns less
  const auto ReadDigits = [&Digits, End](const char16_t* From) {
    for (; From != End; ++From) {
      const unsigned Digit = static_cast<unsigned>(*From) - u'0';
      if (Digit > 9) break;
      Digits = Digits * 10 + Digit;
    }
    return From;
  };
  const char16_t* const First = Next;
  Next = ReadDigits(First);
  std::ptrdiff_t Count = Next - First, Behind = 0;
  if (Next != End && *Next == u'.') {
    const char16_t* const BehindPoint = Next + 1;
    Next = ReadDigits(BehindPoint);
    Behind = Next - BehindPoint;
    Count += Behind;
  }
  if (Next != End || Count == 0 || Count > MostDigits || Digits >= Limit) return false;
  Mantissa = Digits;
  Scale = static_cast<int>(Behind);
  const double Absolute = static_cast<double>(static_cast<std::int64_t>(Digits)) / PowersOf10[Behind];
  Value = Negative ? -Absolute : Absolute;
  return true;
}

TExactNumber::TExactNumber(std::u16string_view NumberText) : Text(NumberText) {
  IsSimple = ReadSimple(NumberText);
  if (!IsSimple) Value = StrToFloat(NumberText);
}

std::int64_t RoundClassicToInt64(double Value) {
  constexpr double Limit = 9223372036854775808.0; // 2^63
  const double Absolute = std::fabs(Value);
  if (!(Absolute < Limit)) RaiseRange(Value);
  double Rounded = std::floor(Absolute);
  if (Absolute - Rounded - 0.5 >= -Tolerance) Rounded += 1;
  return static_cast<std::int64_t>(Value < 0 ? -Rounded : Rounded);
}

std::optional<TDecimal15> RoundToMultiple(double Value, const TExactNumber& Step) {
  const double Count = Value / std::fabs(Step.Value);
  if (Count >= MinTooMany) return std::nullopt;
  if (Step.IsSimple && Count < MaxExact) {
    if (const auto Steps = CountSteps(Value, Step)) {
      const auto Whole = static_cast<std::uint64_t>(*Steps);
      if (Whole <= std::numeric_limits<std::uint64_t>::max() / Step.Mantissa)
        return ToDecimal15(Whole * Step.Mantissa, -Step.Scale);
    }
  }
  return RoundToMultipleExact(Value, Step);
}

TFractionSplit SplitByFraction(double Value, const TExactNumber& Numerator, const TExactNumber& Denominator,
                               bool WithSteps) {
  if (IsWhole(Numerator) && IsWhole(Denominator))
    if (const auto Result = SplitWhenClear(Value, Numerator, Denominator)) return *Result;
  return SplitByFractionExact(Value, Numerator, Denominator, WithSteps);
}

std::int64_t TruncQuotient(const TExactNumber& Numerator, const TExactNumber& Denominator) {
  const TRatio Quotient = ExactOf(Numerator) / ExactOf(Denominator);
  return ToInt64(Quotient.Num / Quotient.Den, Numerator.Value);
}

} // namespace unitlib
