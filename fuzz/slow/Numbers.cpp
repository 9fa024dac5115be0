#include "fuzz/slow/Numbers.h"

#include "fuzz/slow/Regex.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>

namespace unitlib::fuzz::slow {
namespace {

TExact PowerOf10(int Exponent) {
  return TExact::Power(10, Exponent);
}

/// The exact value of digits, point and exponent; the exponent of a double's text is small enough to write
/// out.
TExact ExactDecimal(const std::string& Body) {
  std::string Digits;
  int Scale = 0;
  bool BehindPoint = false;
  std::size_t I = 0;
  const bool Negative = Body[0] == '-';
  for (; I < Body.size() && Body[I] != 'e' && Body[I] != 'E'; ++I) {
    if (Body[I] == '.') BehindPoint = true;
    if (Body[I] < '0' || Body[I] > '9') continue;
    Digits += Body[I];
    Scale += BehindPoint;
  }
  const int Exponent = I < Body.size() ? std::atoi(Body.c_str() + I + 1) : 0;
  const TExact Value = TExact::OfDigits(Digits) * PowerOf10(Exponent - Scale);
  return Negative ? -Value : Value;
}

/// 15 significant digits: 0.d1d2d3... x 10^Exponent, zeros at the end cut.
struct TDigits {
  bool Negative = false;
  std::string Digits; // empty: zero
  int Exponent = 0;
};

TDigits Fifteen(double Value) {
  char Text[40];
  std::snprintf(Text, sizeof Text, "%.14e", std::fabs(Value)); // correctly rounded by the C library
  TDigits Result;
  Result.Negative = Value < 0;
  Result.Digits = Text[0] + std::string(Text + 2, 14);
  Result.Exponent = std::atoi(Text + 17) + 1;
  Result.Digits.erase(Result.Digits.find_last_not_of('0') + 1);
  return Result;
}

TDigits Fifteen(const TExact& Value) {
  TDigits Result;
  if (Value == 0) return Result;
  Result.Negative = Value < 0;
  const TExact Size = Absolute(Value);
  int Exponent = 0;
  if (Size >= 1) Exponent = static_cast<int>(Size.WholeText().size());
  while (Size < PowerOf10(Exponent - 1)) --Exponent;
  const TExact Scaled = Size * PowerOf10(15 - Exponent);
  TExact Whole = Scaled.Truncated();
  const TExact Twice = (Scaled - Whole) * 2;
  if (Twice > 1 || (Twice == 1 && !(Whole / 2).IsWhole())) Whole += 1;
  Result.Digits = Whole.WholeText();
  Result.Exponent = Exponent + static_cast<int>(Result.Digits.size()) - 15;
  Result.Digits.erase(Result.Digits.find_last_not_of('0') + 1);
  return Result;
}

std::string Placed(const TDigits& Number) {
  const int Count = static_cast<int>(Number.Digits.size());
  const std::string Sign = Number.Negative ? "-" : "";
  if (Number.Exponent <= 0)
    return Sign + "0." + std::string(static_cast<std::size_t>(-Number.Exponent), '0') + Number.Digits;
  if (Count <= Number.Exponent)
    return Sign + Number.Digits + std::string(static_cast<std::size_t>(Number.Exponent - Count), '0');
  const auto Point = static_cast<std::size_t>(Number.Exponent);
  return Sign + Number.Digits.substr(0, Point) + "." + Number.Digits.substr(Point);
}

std::string General(const TDigits& Number) {
  if (Number.Digits.empty()) return "0";
  if (Number.Exponent <= 15 && Number.Exponent >= -4) return Placed(Number);
  const std::string Rest = Number.Digits.substr(1);
  return (Number.Negative ? "-" : "") + Number.Digits.substr(0, 1) + (Rest.empty() ? "" : "." + Rest) + "E" +
         std::to_string(Number.Exponent - 1);
}

} // namespace

TRead ReadNumber(std::u16string_view Text) {
  static const TRegex Form("\\A *([+-]?(?:[0-9]+(?:\\.[0-9]*)?|\\.[0-9]+)(?:[eE][+-]?[0-9]+)?) *\\z");
  static const TRegex NotZero("\\A[+-]?[0.]*[1-9]");
  const auto Match = Form.Search(Utf8(Text));
  if (!Match.Found) return {};
  const std::string& Body = Match.Groups[0];
  TRead Result;
  Result.Value = std::strtod(Body.c_str(), nullptr); // in the "C" locale: no program here chooses another
  Result.Ok = std::isfinite(Result.Value);
  Result.AllDigitsZero = !NotZero.IsFound(Body);
  if (Result.Ok && Result.Value != 0) Result.Exact = ExactDecimal(Body);
  return Result;
}

bool IsNumeric(std::u16string_view Text) {
  return ReadNumber(Text).Ok;
}

bool IsInt64(std::u16string_view Text) {
  static const TRegex Form("\\A *([+-]?[0-9]+)\\z");
  const auto Match = Form.Search(Utf8(Text));
  if (!Match.Found) return false;
  const TExact Value = ExactDecimal(Match.Groups[0]);
  return Value >= TExact(std::numeric_limits<std::int64_t>::min()) &&
         Value <= TExact(std::numeric_limits<std::int64_t>::max());
}

TExact ExactOf(double Value) {
  if (!std::isfinite(Value)) std::abort();
  int Exponent = 0;
  const double Mantissa = std::frexp(Value, &Exponent);
  return TExact(static_cast<std::int64_t>(std::ldexp(Mantissa, 53))) * TExact::Power(2, Exponent - 53);
}

TExact Absolute(const TExact& Value) {
  return Value < 0 ? -Value : Value;
}

std::u16string GeneralText(double Value) {
  return Wide(General(Fifteen(Value)));
}
std::u16string GeneralText(const TExact& Value) {
  return Wide(General(Fifteen(Value)));
}

std::u16string PlainText(double Value) {
  const TDigits Number = Fifteen(Value);
  return Wide(Number.Digits.empty() ? "0" : Placed(Number));
}
std::u16string PlainText(const TExact& Value) {
  const TDigits Number = Fifteen(Value);
  return Wide(Number.Digits.empty() ? "0" : Placed(Number));
}

TExact RoundClassic(const TExact& Value) {
  static const TExact NearlyHalf = TExact(1, 2) - PowerOf10(-12);
  const TExact Size = Absolute(Value);
  TExact Whole = Size.Truncated();
  if (Size - Whole >= NearlyHalf) Whole += 1;
  return Value < 0 ? -Whole : Whole;
}

std::u16string Wide(const std::string& Ascii) {
  return std::u16string(Ascii.begin(), Ascii.end());
}

std::u16string Trimmed(std::u16string_view Text) {
  while (!Text.empty() && Text.front() <= 0x20) Text.remove_prefix(1);
  while (!Text.empty() && Text.back() <= 0x20) Text.remove_suffix(1);
  return std::u16string(Text);
}

char16_t Lower(char16_t C) {
  return C >= u'A' && C <= u'Z' ? static_cast<char16_t>(C + 32) : C;
}

std::u16string Lower(std::u16string_view Text) {
  std::u16string Result;
  for (const char16_t C : Text) Result += Lower(C);
  return Result;
}

bool EndsWith(std::u16string_view Text, std::u16string_view Tail) {
  return Text.size() >= Tail.size() && Lower(Text.substr(Text.size() - Tail.size())) == Lower(Tail);
}

} // namespace unitlib::fuzz::slow
