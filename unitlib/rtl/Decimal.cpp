#include "unitlib/rtl/Decimal.h"

#include "unitlib/rtl/ExactProduct.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>

namespace unitlib {
namespace {

constexpr int MaxDigits = 15;
constexpr std::uint64_t Limit = 1'000'000'000'000'000; // 10^15: one more digit than a mantissa may have

/// The digits of a whole number, two at a time, written before End; returns where they start. Measured beside
/// std::to_chars and widening: 7 ns instead of 19 for 15 digits.
char16_t* WriteDigits(std::uint64_t Value, char16_t* End) noexcept {
  static constexpr auto Pairs = [] {
    struct {
      char16_t Chars[200];
    } Table{};
    for (int I = 0; I < 100; ++I) {
      Table.Chars[I + I] = static_cast<char16_t>(u'0' + I / 10);
      Table.Chars[I + I + 1] = static_cast<char16_t>(u'0' + I % 10);
    }
    return Table;
  }();
  while (Value >= 100) {
    std::memcpy(End -= 2, Pairs.Chars + 2 * (Value % 100), 2 * sizeof(char16_t));
    Value /= 100;
  }
  if (Value < 10)
    *--End = static_cast<char16_t>(u'0' + Value);
  else
    std::memcpy(End -= 2, Pairs.Chars + 2 * Value, 2 * sizeof(char16_t));
  return End;
}

/// The digits of a number, most significant first.
struct TDigits {
  char16_t Chars[20];
  const char16_t* Begin;
  explicit TDigits(std::uint64_t Value) noexcept : Begin(WriteDigits(Value, Chars + 20)) {}
  int Count() const noexcept { return static_cast<int>(Chars + 20 - Begin); }
};

TDecimal15 WithoutTrailingZeros(std::uint64_t Mantissa, int Exponent) noexcept {
  if (Mantissa == 0) return {};
  constexpr std::pair<std::uint64_t, int> Steps[] = {{100'000'000, 8}, {10'000, 4}, {100, 2}, {10, 1}};
  for (const auto& [Divisor, Zeros] : Steps)
    if (Mantissa % Divisor == 0) {
      Mantissa /= Divisor;
      Exponent += Zeros;
    }
  return {Mantissa, Exponent};
}

/// Digits / 10^Shift.
struct TScaledDigits {
  std::int64_t Digits;
  int Shift; // 0 to 20
};

/// 15 digits of a value from 1e-5 to 1e15 by a product with a power of ten; false where the digit behind them is
/// so near a half that the sum of the parts could decide wrongly, and beyond that range. 90 ns less than
/// to_chars.
bool RoundByProduct(double Value, TScaledDigits& Result) noexcept {
  if (!(Value >= 1e-5 && Value < 1e15)) return false;
  const int Binary = static_cast<int>(std::bit_cast<std::uint64_t>(Value) >> 52) - 1023;
  int Shift =
      MaxDigits - 1 - (Binary * 1233 >> 12); // 1233 / 4096 is log10(2), near enough from 2^-17 to 2^49
  double Product = Value * PowersOf10[Shift];
  if (Product >= static_cast<double>(Limit)) Product = Value * PowersOf10[--Shift];
  const auto Whole = static_cast<std::int64_t>(Product);
  double Rest = Product - static_cast<double>(Whole);
  // Below 2^50 a product is off by 1/16 at most: mostly that cannot matter, and the exact one is not needed.
  if (std::fabs(Rest - 0.5) < 0.07) Rest += TExactProduct(Value, PowersOf10[Shift]).Lo;
  if (std::fabs(Rest - 0.5) < 1e-6) return false;
  Result = {Whole + (Rest > 0.5 ? 1 : 0), Shift};
  return true;
}

TDecimal15 RoundByText(double Value) {
  char Text[32]; // d.dddddddddddddde-308
  const char* End =
      std::to_chars(Text, Text + sizeof Text, Value, std::chars_format::scientific, MaxDigits - 1).ptr;
  std::uint64_t Mantissa = static_cast<std::uint64_t>(Text[0] - '0');
  for (int I = 2; I <= MaxDigits; ++I) Mantissa = Mantissa * 10 + static_cast<std::uint64_t>(Text[I] - '0');
  const char* Exp = Text + MaxDigits + 2;
  int Exponent = 0;
  std::from_chars(*Exp == '+' ? Exp + 1 : Exp, End, Exponent);
  return WithoutTrailingZeros(Mantissa, Exponent - (MaxDigits - 1));
}

} // namespace

TDecimal15 ToDecimal15(double Value) {
  if (Value == 0) return {};
  TScaledDigits Result;
  return RoundByProduct(Value, Result)
             ? WithoutTrailingZeros(static_cast<std::uint64_t>(Result.Digits), -Result.Shift)
             : RoundByText(Value);
}

bool CutTo15Digits(double Value, double& Cut) noexcept {
  TScaledDigits Result;
  if (!RoundByProduct(Value, Result)) return false;
  Cut = static_cast<double>(Result.Digits) / PowersOf10[Result.Shift]; // both exact: the nearest double
  return true;
}

TDecimal15 ToDecimal15(std::uint64_t Digits, int Exponent) noexcept {
  std::uint64_t Divisor = 1;
  for (std::uint64_t Rest = Digits; Rest >= Limit; Rest /= 10, ++Exponent) Divisor *= 10;
  if (Divisor == 1) return WithoutTrailingZeros(Digits, Exponent);
  const std::uint64_t Cut = Digits % Divisor;
  std::uint64_t Mantissa = Digits / Divisor;
  // Divisor is even, so its half is exact; above the half or at the half of an odd number the digits go up.
  if (Cut > Divisor / 2 || (Cut == Divisor / 2 && Mantissa % 2 == 1)) ++Mantissa;
  return WithoutTrailingZeros(Mantissa, Exponent);
}

TDecimal15 ToDecimal15(std::string_view Digits, int Exponent) {
  while (!Digits.empty() && Digits.front() == '0') Digits.remove_prefix(1);
  constexpr size_t Fits = 18; // digits that surely fit 64 bits
  if (Digits.size() > Fits) {
    Exponent += static_cast<int>(Digits.size() - Fits);
    const bool Sticky = Digits.find_first_not_of('0', Fits) != std::string_view::npos;
    std::uint64_t Head = 0;
    std::from_chars(Digits.data(), Digits.data() + Fits, Head);
    // A digit behind the ones kept only matters where it breaks a tie, and there 1 more is enough.
    return ToDecimal15(Head * 10 + (Sticky ? 1 : 0), Exponent - 1);
  }
  std::uint64_t Value = 0;
  std::from_chars(Digits.data(), Digits.data() + Digits.size(), Value);
  return ToDecimal15(Value, Exponent);
}

TPlainText::TPlainText(TDecimal15 Value, bool Negative) : FDecimals(std::max(-Value.Exponent, 0)) {
  const TDigits Digits(Value.Mantissa);
  const int Count = Digits.Count(), Point = Count + Value.Exponent; // digits before the decimal point
  const int Length = (Negative ? 1 : 0) + (Value.Exponent >= 0 ? Point
                                           : Point > 0         ? Count + 1
                                                               : 2 - Point + Count);
  char16_t* Out = FShort;
  if (Length > static_cast<int>(std::size(FShort))) {
    FLong.resize(static_cast<size_t>(Length));
    Out = FLong.data();
  }
  FView = {Out, static_cast<size_t>(Length)};
  if (Negative) *Out++ = u'-';
  if (Value.Exponent >= 0) {
    std::fill_n(std::copy_n(Digits.Begin, Count, Out), Value.Exponent, u'0');
  } else if (Point > 0) {
    Out = std::copy_n(Digits.Begin, Point, Out);
    *Out++ = u'.';
    std::copy_n(Digits.Begin + Point, Count - Point, Out);
  } else {
    *Out++ = u'0';
    *Out++ = u'.';
    std::copy_n(Digits.Begin, Count, std::fill_n(Out, -Point, u'0'));
  }
}

void AppendFixed(std::u16string& Out, std::uint64_t Whole, int Scale, int MinDecimals, int GroupSize) {
  constexpr int Room = 24; // digits: one before the point and 22 behind it, at most
  constexpr int Block =
      8; // characters that are copied at a time, wanted or not: a copy of a known size is two moves
  char16_t Buffer[Room + Block] = {};
  char16_t* Digits = WriteDigits(Whole, Buffer + Room);
  while (Buffer + Room - Digits <= Scale) *--Digits = u'0';
  const char16_t* const Point = Buffer + Room - Scale;
  const auto Copy = [](char16_t* To, const char16_t* From) {
    std::memcpy(To, From, Block * sizeof(char16_t));
  };
  char16_t Text[2 * Room];
  char16_t* To = Text;
  if (GroupSize == 0) {
    To = std::copy(static_cast<const char16_t*>(Digits), Point, To);
  } else {
    auto Part = (Point - Digits) % GroupSize;
    if (Part == 0) Part = GroupSize;
    Copy(To, Digits);
    To += Part;
    for (const char16_t* From = Digits + Part; From != Point; From += GroupSize, To += GroupSize) {
      *To++ = u',';
      Copy(To, From);
    }
  }
  while (Scale > MinDecimals && Point[Scale - 1] == u'0') --Scale;
  if (Scale > 0) {
    *To++ = u'.';
    for (int I = 0; I < Scale; I += Block) Copy(To + I, Point + I);
    To += Scale;
  }
  Out.append(Text, static_cast<size_t>(To - Text));
}

char16_t* WriteInteger(char16_t* Out, std::uint64_t Value) noexcept {
  if (Value < 10) { // inches and fractions are
    *Out = static_cast<char16_t>(u'0' + Value);
    return Out + 1;
  }
  const TDigits Digits(Value);
  std::memcpy(Out, Digits.Begin, sizeof(char16_t) * static_cast<size_t>(Digits.Count()));
  return Out + Digits.Count();
}

void AppendPlain(std::u16string& Out, TDecimal15 Value) {
  Out.append(TPlainText(Value, false).View());
}

/// True where the digits start at 0.00001 or before, and none is behind 22 decimals.
bool IsUsual(TDecimal15 Value) noexcept {
  constexpr int MostDecimals = 19, AlwaysFixed = 5;
  if (Value.Exponent > 0 || Value.Exponent < -MostDecimals) return false;
  return -Value.Exponent <= AlwaysFixed ||
         static_cast<double>(Value.Mantissa) >= PowersOf10[-Value.Exponent - AlwaysFixed];
}

void AppendGeneral(std::u16string& Out, TDecimal15 Value) {
  if (IsUsual(Value)) return AppendFixed(Out, Value.Mantissa, -Value.Exponent, 0, 0);
  const TDigits Digits(Value.Mantissa);
  const int Point = Digits.Count() + Value.Exponent;
  if (Value.Mantissa == 0 || (Point <= MaxDigits && Point > -5)) return AppendPlain(Out, Value);
  Out.push_back(Digits.Begin[0]);
  if (Digits.Count() > 1) {
    Out.push_back(u'.');
    Out.append(Digits.Begin + 1, static_cast<size_t>(Digits.Count() - 1));
  }
  Out.push_back(u'E');
  AppendInteger(Out, Point - 1);
}

void AppendInteger(std::u16string& Out, std::int64_t Value) {
  if (Value < 0) Out.push_back(u'-');
  // Negated as unsigned: the lowest integer has no positive counterpart.
  const TDigits Digits(Value < 0 ? -static_cast<std::uint64_t>(Value) : static_cast<std::uint64_t>(Value));
  Out.append(Digits.Begin, static_cast<size_t>(Digits.Count()));
}

} // namespace unitlib
