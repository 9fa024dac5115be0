#include "unitlib/rtl/Decimal.h"

#include <charconv>
#include <cstring>

namespace unitlib {
namespace {

constexpr int MaxDigits = 15;
constexpr std::uint64_t Limit = 1'000'000'000'000'000; // 10^15: one more digit than a mantissa may have

/// Mantissa as digits, most significant first.
struct TDigits {
  char Chars[20];
  int Count = 0;
  explicit TDigits(std::uint64_t Value) {
    Count = static_cast<int>(std::to_chars(Chars, Chars + sizeof Chars, Value).ptr - Chars);
  }
};

TDecimal15 WithoutTrailingZeros(std::uint64_t Mantissa, int Exponent) noexcept {
  if (Mantissa == 0) return {};
  while (Mantissa % 10 == 0) {
    Mantissa /= 10;
    ++Exponent;
  }
  return {Mantissa, Exponent};
}

void AppendNarrow(std::u16string& Out, const char* Chars, int Count) {
  Out.append(Chars, Chars + Count);
}
void AppendZeros(std::u16string& Out, int Count) {
  Out.append(static_cast<size_t>(Count), u'0');
}

} // namespace

TDecimal15 ToDecimal15(double Value) {
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

TDecimal15 ToDecimal15(std::uint64_t Digits, int Exponent) noexcept {
  std::uint64_t Divisor = 1;
  for (std::uint64_t Rest = Digits; Rest >= Limit; Rest /= 10, ++Exponent) Divisor *= 10;
  const std::uint64_t Cut = Digits % Divisor;
  std::uint64_t Mantissa = Digits / Divisor;
  // Divisor is 1 or even, so its half is exact; above the half or at the half of an odd number the digits go
  // up.
  if (Divisor > 1 && (Cut > Divisor / 2 || (Cut == Divisor / 2 && Mantissa % 2 == 1))) ++Mantissa;
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

void AppendPlain(std::u16string& Out, TDecimal15 Value) {
  const TDigits Digits(Value.Mantissa);
  const int Point = Digits.Count + Value.Exponent; // digits before the decimal point
  if (Value.Exponent >= 0) {
    AppendNarrow(Out, Digits.Chars, Digits.Count);
    AppendZeros(Out, Value.Exponent);
  } else if (Point > 0) {
    AppendNarrow(Out, Digits.Chars, Point);
    Out.push_back(u'.');
    AppendNarrow(Out, Digits.Chars + Point, Digits.Count - Point);
  } else {
    Out.append(u"0.");
    AppendZeros(Out, -Point);
    AppendNarrow(Out, Digits.Chars, Digits.Count);
  }
}

void AppendGeneral(std::u16string& Out, TDecimal15 Value) {
  const TDigits Digits(Value.Mantissa);
  const int Point = Digits.Count + Value.Exponent;
  if (Value.Mantissa == 0 || (Point <= MaxDigits && Point > -5)) return AppendPlain(Out, Value);
  Out.push_back(static_cast<char16_t>(Digits.Chars[0]));
  if (Digits.Count > 1) {
    Out.push_back(u'.');
    AppendNarrow(Out, Digits.Chars + 1, Digits.Count - 1);
  }
  char Exp[8];
  const char* End = std::to_chars(Exp, Exp + sizeof Exp, Point - 1).ptr;
  Out.push_back(u'E');
  AppendNarrow(Out, Exp, static_cast<int>(End - Exp));
}

} // namespace unitlib
