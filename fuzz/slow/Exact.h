/// Exact fractions of any size. The big-number library stays in one file: it takes the compiler long.
#pragma once

#include <compare>
#include <cstdint>
#include <memory>
#include <string>

namespace unitlib::fuzz::slow {

class TExact {
public:
  TExact(std::int64_t Whole = 0) : TExact(Whole, 1) {}
  TExact(std::int64_t Numerator, std::int64_t Denominator);
  static TExact OfDigits(const std::string& Digits); // "0" to "9" only
  static TExact Power(int Base, int Exponent);

  friend TExact operator+(const TExact& A, const TExact& B);
  friend TExact operator-(const TExact& A, const TExact& B);
  friend TExact operator*(const TExact& A, const TExact& B);
  friend TExact operator/(const TExact& A, const TExact& B);
  TExact operator-() const;
  TExact& operator+=(const TExact& B) { return *this = *this + B; }
  TExact& operator*=(const TExact& B) { return *this = *this * B; }
  TExact& operator/=(const TExact& B) { return *this = *this / B; }
  friend bool operator==(const TExact& A, const TExact& B) { return Compare(A, B) == 0; }
  friend std::strong_ordering operator<=>(const TExact& A, const TExact& B) { return Compare(A, B) <=> 0; }

  /// Whole part, towards zero.
  TExact Truncated() const;
  bool IsWhole() const { return Truncated() == *this; }
  /// Digits of the whole part, with its sign.
  std::string WholeText() const;
  /// The nearest double, halves to even; an infinity beyond the range.
  double ToDouble() const;

private:
  struct TNumber;
  explicit TExact(TNumber Number);
  static int Compare(const TExact& A, const TExact& B);

  std::shared_ptr<const TNumber> FNumber;
};

} // namespace unitlib::fuzz::slow
