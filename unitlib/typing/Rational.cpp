#include "unitlib/typing/Rational.h"

#include "unitlib/rtl/Numbers.h"

#include <limits>
#include <numeric>

namespace unitlib::typing {
namespace {

constexpr std::int64_t Max = std::numeric_limits<std::int64_t>::max();

/// A * B; false when it does not fit.
bool Multiply(std::int64_t A, std::int64_t B, std::int64_t& Product) {
  const std::int64_t AbsA = A < 0 ? -A : A, AbsB = B < 0 ? -B : B;
  if (AbsA != 0 && AbsB > Max / AbsA) return false;
  Product = A * B;
  return true;
}

bool Add(std::int64_t A, std::int64_t B, std::int64_t& Sum) {
  if (B >= 0 ? A > Max - B : A < -Max - B) return false;
  Sum = A + B;
  return true;
}

TRational Inexact() {
  return TRational(0, 0);
}

} // namespace

TRational::TRational(std::int64_t Num, std::int64_t Den) : FNum(Num), FDen(Den) {
  const std::int64_t Common = Den == 0 ? 1 : std::gcd(Num, Den);
  FNum /= Common;
  FDen /= Common;
}

TRational TRational::operator-() const {
  return TRational(-FNum, FDen);
}

TRational TRational::operator+(const TRational& Other) const {
  std::int64_t Left = 0, Right = 0, Sum = 0, Den = 0;
  if (!IsExact() || !Other.IsExact()) return Inexact();
  const std::int64_t Common = std::gcd(FDen, Other.FDen);
  const bool Fits = Multiply(FNum, Other.FDen / Common, Left) && Multiply(Other.FNum, FDen / Common, Right) &&
                    Add(Left, Right, Sum) && Multiply(FDen, Other.FDen / Common, Den);
  return Fits ? TRational(Sum, Den) : Inexact();
}

TRational TRational::operator*(const TRational& Other) const {
  if (!IsExact() || !Other.IsExact()) return Inexact();
  const TRational A(FNum, Other.FDen), B(Other.FNum, FDen); // crosswise in lowest terms: smaller products
  std::int64_t Num = 0, Den = 0;
  if (!Multiply(A.FNum, B.FNum, Num) || !Multiply(A.FDen, B.FDen, Den)) return Inexact();
  return TRational(Num, Den);
}

TRational TRational::operator/(const TRational& Other) const {
  if (!Other.IsExact() || Other.FNum == 0) return Inexact();
  const bool Negative = Other.FNum < 0;
  const TRational Inverse(Negative ? -Other.FDen : Other.FDen, Negative ? -Other.FNum : Other.FNum);
  return *this * Inverse;
}

bool TRational::operator<(std::int64_t Whole) const {
  return FNum < 0 ? (Whole >= 0 || FNum / FDen < Whole) : FNum / FDen < Whole;
}

std::u16string DecimalText(const TRational& Value) {
  constexpr std::size_t MaxDigits = 21;
  const std::int64_t Num = Value.IsNegative() ? -Value.Num() : Value.Num();
  std::u16string Text = Value.IsNegative() ? u"-" : u"";
  Text += IntToStr(Num / Value.Den());
  // Rest < Den, and ten times it need not fit: the digits come from doubling and adding with care.
  auto Rest = static_cast<std::uint64_t>(Num % Value.Den());
  const auto Den = static_cast<std::uint64_t>(Value.Den());
  if (Rest != 0) Text += u'.';
  std::size_t Digits = Num / Value.Den() == 0 ? 0 : Text.size();
  while (Rest != 0 && Digits < MaxDigits) {
    std::uint64_t Digit = 0, Ten = 0; // Ten = 10 * Rest mod Den, Digit the quotient
    for (int I = 0; I < 10; ++I) {
      Ten += Rest;
      if (Ten >= Den) {
        Ten -= Den;
        ++Digit;
      }
    }
    Text += static_cast<char16_t>(u'0' + Digit);
    if (Digit != 0 || Digits > 0) ++Digits; // leading zeros of a small number do not count
    Rest = Ten;
  }
  return Text;
}

} // namespace unitlib::typing
