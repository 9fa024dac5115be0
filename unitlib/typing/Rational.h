/// Exact fractions of whole numbers, for rewriting a length without losing a digit.
#pragma once

#include <cstdint>
#include <string>

namespace unitlib::typing {

/// Num / Den in lowest terms, Den > 0; or nothing, once a part did not fit 63 bits.
class TRational {
public:
  TRational() = default;
  TRational(std::int64_t Num, std::int64_t Den = 1); // Den > 0

  bool IsExact() const noexcept { return FDen != 0; }
  std::int64_t Num() const noexcept { return FNum; }
  std::int64_t Den() const noexcept { return FDen; }
  bool IsWhole() const noexcept { return FDen == 1; }
  bool IsNegative() const noexcept { return FNum < 0; }
  double AsDouble() const noexcept { return static_cast<double>(FNum) / static_cast<double>(FDen); }

  TRational operator-() const;
  TRational operator+(const TRational& Other) const;
  TRational operator-(const TRational& Other) const { return *this + -Other; }
  TRational operator*(const TRational& Other) const;
  TRational operator/(const TRational& Other) const; // Other is not 0
  bool operator<(std::int64_t Whole) const;          // exact ones only

private:
  std::int64_t FNum = 0;
  std::int64_t FDen = 1;
};

/// Decimal text: all digits where they end, else 21 significant ones, more than a double tells apart.
std::u16string DecimalText(const TRational& Value);

} // namespace unitlib::typing
