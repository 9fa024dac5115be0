#include "fuzz/slow/Exact.h"

#include <boost/multiprecision/cpp_int.hpp>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace unitlib::fuzz::slow {
namespace {

namespace mp = boost::multiprecision;
using TWhole = mp::number<mp::cpp_int_backend<>, mp::et_off>;
using TRational = mp::number<mp::rational_adaptor<mp::cpp_int_backend<>>, mp::et_off>;

TWhole Above(const TRational& Value) {
  return TWhole(mp::numerator(Value));
}
TWhole Below(const TRational& Value) {
  return TWhole(mp::denominator(Value));
}

} // namespace

struct TExact::TNumber {
  TRational Value;
};

TExact::TExact(TNumber Number) : FNumber(std::make_shared<const TNumber>(std::move(Number))) {}

TExact::TExact(std::int64_t Numerator, std::int64_t Denominator)
    : TExact(TNumber{TRational(TWhole(Numerator), TWhole(Denominator))}) {}

TExact TExact::OfDigits(const std::string& Digits) {
  const std::size_t First = std::min(Digits.find_first_not_of('0'), Digits.size() - 1); // no octal numbers
  return TExact(TNumber{TRational(TWhole(Digits.substr(First)))});
}

TExact TExact::Power(int Base, int Exponent) {
  const TWhole Size = mp::pow(TWhole(Base), static_cast<unsigned>(std::abs(Exponent)));
  return TExact(TNumber{Exponent < 0 ? TRational(TWhole(1), Size) : TRational(Size)});
}

TExact operator+(const TExact& A, const TExact& B) {
  return TExact(TExact::TNumber{A.FNumber->Value + B.FNumber->Value});
}
TExact operator-(const TExact& A, const TExact& B) {
  return TExact(TExact::TNumber{A.FNumber->Value - B.FNumber->Value});
}
TExact operator*(const TExact& A, const TExact& B) {
  return TExact(TExact::TNumber{A.FNumber->Value * B.FNumber->Value});
}
TExact operator/(const TExact& A, const TExact& B) {
  return TExact(TExact::TNumber{A.FNumber->Value / B.FNumber->Value});
}
TExact TExact::operator-() const {
  return TExact(TNumber{-FNumber->Value});
}

int TExact::Compare(const TExact& A, const TExact& B) {
  return A.FNumber->Value.compare(B.FNumber->Value);
}

TExact TExact::Truncated() const {
  return TExact(TNumber{TRational(TWhole(Above(FNumber->Value) / Below(FNumber->Value)))});
}

std::string TExact::WholeText() const {
  return TWhole(Above(FNumber->Value) / Below(FNumber->Value)).str();
}

double TExact::ToDouble() const {
  TWhole Dividend = mp::abs(Above(FNumber->Value)), Divisor = Below(FNumber->Value);
  if (Dividend == 0) return 0;
  // A quotient of 64 bits or one more, its last bit set when anything is left: converting that rounds but
  // once.
  const int Shift = 64 - (static_cast<int>(mp::msb(Dividend)) - static_cast<int>(mp::msb(Divisor)));
  (Shift >= 0 ? Dividend : Divisor) <<= static_cast<unsigned>(std::abs(Shift));
  TWhole Quotient, Rest;
  mp::divide_qr(Dividend, Divisor, Quotient, Rest);
  const bool IsLong = mp::msb(Quotient) > 63;
  bool IsRest = Rest != 0;
  if (IsLong) {
    IsRest = IsRest || mp::bit_test(Quotient, 0);
    Quotient >>= 1;
  }
  const std::uint64_t Bits = static_cast<std::uint64_t>(Quotient) | (IsRest ? 1U : 0U);
  const double Size = std::ldexp(static_cast<double>(Bits), (IsLong ? 1 : 0) - Shift);
  return FNumber->Value < 0 ? -Size : Size;
}

} // namespace unitlib::fuzz::slow
