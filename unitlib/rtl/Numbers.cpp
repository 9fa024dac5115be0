#include "unitlib/rtl/Numbers.h"

#include "unitlib/rtl/Decimal.h"
#include "unitlib/rtl/Errors.h"
#include "unitlib/rtl/ExactProduct.h"
#include "unitlib/rtl/Text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <type_traits>

namespace unitlib {
namespace {

/// Where the parts of a number text lie; Ok only when the whole text has the shape of one.
struct TShape {
  bool Ok = false;
  bool Negative = false;
  bool IsZero = true;
  bool Below1 = false; // the first digit that is not 0 stands behind the point once the exponent is applied
  std::u16string_view Unsigned;
};

size_t SkipDigits(std::u16string_view Text, size_t Pos) {
  while (Pos < Text.size() && IsDigit(Text[Pos])) ++Pos;
  return Pos;
}

/// Exponent digits as a number, cut at a million: beyond that every double is out of range anyway.
long ReadExponent(std::u16string_view Text) {
  const bool Negative = Text.front() == u'-';
  if (Negative || Text.front() == u'+') Text.remove_prefix(1);
  long Result = 0;
  for (char16_t C : Text) Result = std::min(Result * 10 + (C - u'0'), 1'000'000L);
  return Negative ? -Result : Result;
}

TShape ReadShape(std::u16string_view Text) {
  while (!Text.empty() && Text.front() == u' ') Text.remove_prefix(1);
  while (!Text.empty() && Text.back() == u' ') Text.remove_suffix(1);
  TShape Shape;
  if (!Text.empty() && (Text.front() == u'-' || Text.front() == u'+')) {
    Shape.Negative = Text.front() == u'-';
    Text.remove_prefix(1);
  }
  const size_t Point = SkipDigits(Text, 0);
  size_t Pos = Point < Text.size() && Text[Point] == u'.' ? SkipDigits(Text, Point + 1) : Point;
  const std::u16string_view Mantissa = Text.substr(0, Pos);
  if (Mantissa.empty() || Mantissa == u".") return Shape;
  long Exponent = 0;
  if (Pos < Text.size()) {
    if (Text[Pos] != u'e' && Text[Pos] != u'E') return Shape;
    const size_t Start = ++Pos;
    if (Pos < Text.size() && (Text[Pos] == u'-' || Text[Pos] == u'+')) ++Pos;
    const size_t Digits = Pos;
    Pos = SkipDigits(Text, Pos);
    if (Pos == Digits || Pos != Text.size()) return Shape;
    Exponent = ReadExponent(Text.substr(Start));
  }
  const size_t First = Mantissa.find_first_not_of(u"0.");
  Shape.Ok = true;
  Shape.IsZero = First == std::u16string_view::npos;
  if (!Shape.IsZero) {
    const long Digits = First < Point ? static_cast<long>(Point - First)
                                      : static_cast<long>(Point) + 1 - static_cast<long>(First);
    Shape.Below1 = Digits + Exponent <= 0;
  }
  Shape.Unsigned = Text;
  return Shape;
}

/// from_chars over the narrowed text; the shape has been checked, so it only fails on range.
TNumberText Convert(const TShape& Shape, const char* Begin, const char* End) {
  TNumberText Result{true, Shape.IsZero, 0.0};
  double Value = 0.0;
  const auto Read = std::from_chars(Begin, End, Value);
  if (Read.ec == std::errc::result_out_of_range || !std::isfinite(Value)) {
    if (!Shape.Below1) return {};
    Value = 0.0;
  }
  Result.Value = Shape.Negative ? -Value : Value;
  return Result;
}

/// The usual number text: at most 15 digits, no exponent, plain blanks and, where they count as nothing,
/// commas. Digits and a power of ten are exact doubles, so their quotient is the nearest one. False for every
/// other text, which may be a number all the same. 40 ns less than checking the shape and std::from_chars.
template <class TChar>
bool ReadUsual(std::basic_string_view<TChar> Text, bool SkipCommas, TNumberText& Number) noexcept {
  while (!Text.empty() && Text.back() == u' ') Text.remove_suffix(1);
  while (!Text.empty() && Text.front() == u' ') Text.remove_prefix(1);
  if (Text.empty()) return false;
  const bool Negative = Text.front() == u'-';
  if (Negative || Text.front() == u'+') Text.remove_prefix(1);
  std::uint64_t Mantissa = 0;
  int Digits = 0, Scale = 0;
  bool BehindPoint = false;
  for (const TChar Each : Text) {
    const char16_t C = static_cast<std::make_unsigned_t<TChar>>(Each);
    if (IsDigit(C)) {
      Mantissa = Mantissa * 10 + static_cast<unsigned>(C - u'0');
      ++Digits;
      Scale += BehindPoint;
    } else if (C == u'.' && !BehindPoint) {
      BehindPoint = true;
    } else if (C != u',' || !SkipCommas) {
      return false;
    }
  }
  if (Digits == 0 || Digits > 15) return false;
  const double Value = static_cast<double>(Mantissa) / PowersOf10[Scale];
  Number = {true, Mantissa == 0, Negative ? -Value : Value};
  return true;
}

/// False for texts that surely are no number, by their first and last characters: names, and lengths with marks.
bool LooksLikeNumber(std::u16string_view Text) noexcept {
  while (!Text.empty() && (Text.back() == u' ' || Text.back() == u',')) Text.remove_suffix(1);
  if (Text.empty() || (!IsDigit(Text.back()) && Text.back() != u'.')) return false;
  return Text.front() <= u'9'; // a digit, a point, a sign, a blank, a comma
}

template <class T> bool ReadInteger(std::u16string_view Text, T& Value) noexcept {
  while (!Text.empty() && Text.front() == u' ') Text.remove_prefix(1);
  if (Text.empty()) return false;
  const bool Negative = Text.front() == u'-';
  if (Negative || Text.front() == u'+') Text.remove_prefix(1);
  if (Text.empty() || SkipDigits(Text, 0) != Text.size()) return false;
  T Result = 0;
  for (char16_t C : Text) {
    const T Digit = static_cast<T>(C - u'0');
    // Counted downwards: the lowest integer has no positive counterpart.
    if (Result < (std::numeric_limits<T>::min() + Digit) / 10) return false;
    Result = static_cast<T>(Result * 10 - Digit);
  }
  if (!Negative && Result == std::numeric_limits<T>::min()) return false;
  Value = Negative ? Result : static_cast<T>(-Result);
  return true;
}

void RequireFinite(double Value) {
  if (std::isnan(Value)) throw ERangeError(u"Not a finite number: NaN", u"NaN");
  if (std::isinf(Value)) {
    const std::u16string Text = Value < 0 ? u"-INF" : u"INF";
    throw ERangeError(u"Not a finite number: " + Text, Text);
  }
}

template <void (*Append)(std::u16string&, TDecimal15)> std::u16string DigitsText(double Value) {
  RequireFinite(Value);
  std::u16string Result;
  if (Value < 0) Result.push_back(u'-');
  Append(Result, ToDecimal15(std::fabs(Value)));
  return Result;
}

} // namespace

TNumberText ReadNumber(std::u16string_view Text) {
  TNumberText Usual;
  if (ReadUsual(Text, false, Usual)) return Usual;
  if (!LooksLikeNumber(Text)) return {};
  const TShape Shape = ReadShape(Text);
  if (!Shape.Ok) return {};
  constexpr size_t Short = 64;
  if (Shape.Unsigned.size() <= Short) {
    char Narrow[Short];
    std::transform(Shape.Unsigned.begin(), Shape.Unsigned.end(), Narrow,
                   [](char16_t C) { return static_cast<char>(C); });
    return Convert(Shape, Narrow, Narrow + Shape.Unsigned.size());
  }
  const std::string Narrow = ToUtf8(Shape.Unsigned);
  return Convert(Shape, Narrow.data(), Narrow.data() + Narrow.size());
}

TNumberText ReadUtf8Number(std::string_view Text) {
  TNumberText Usual;
  return ReadUsual(Text, false, Usual) ? Usual : ReadNumber(FromUtf8(Text));
}

TNumberText ReadNumberWithCommas(std::u16string_view Text) {
  TNumberText Usual;
  if (ReadUsual(Text, true, Usual)) return Usual;
  if (!LooksLikeNumber(Text)) return {};
  if (Text.find(u',') == std::u16string_view::npos) return ReadNumber(Text);
  std::u16string Rest(Text);
  std::erase(Rest, u',');
  return ReadNumber(Rest);
}

double StrToFloat(std::u16string_view Text) {
  const TNumberText Number = ReadNumber(Text);
  if (!Number.Ok) throw EConvertError(u"\"" + std::u16string(Text) + u"\" is not a number", Text);
  return Number.Value;
}

bool TryStrToFloat(std::u16string_view Text, double& Value) {
  const TNumberText Number = ReadNumber(Text);
  if (Number.Ok) Value = Number.Value;
  return Number.Ok;
}

bool IsNumeric(std::u16string_view Text) {
  return ReadNumber(Text).Ok;
}

bool TryStrToInt64(std::u16string_view Text, std::int64_t& Value) noexcept {
  return ReadInteger(Text, Value);
}
bool TryStrToInt(std::u16string_view Text, int& Value) noexcept {
  return ReadInteger(Text, Value);
}

bool IsInt64(std::u16string_view Text) noexcept {
  std::int64_t Value = 0;
  return ReadInteger(Text, Value);
}

bool IsInteger(std::u16string_view Text) noexcept {
  int Value = 0;
  return ReadInteger(Text, Value);
}

std::u16string FloatToStr(double Value) {
  return DigitsText<AppendGeneral>(Value);
}
void AppendFloat(std::u16string& Out, double Value) {
  RequireFinite(Value);
  if (Value < 0) Out.push_back(u'-');
  AppendGeneral(Out, ToDecimal15(std::fabs(Value)));
}
std::u16string FloatToPlainStr(double Value) {
  return DigitsText<AppendPlain>(Value);
}

std::u16string FixedToStr(double Value, int Decimals) {
  RequireFinite(Value);
  char Text[400]; // the largest double has 309 digits before the point
  const int Digits =
      std::clamp(Decimals, 0, 15); // to_chars of GCC 12 writes past its end for the largest int
  const char* End = std::to_chars(Text, Text + sizeof Text, Value, std::chars_format::fixed, Digits).ptr;
  return std::u16string(static_cast<const char*>(Text), End);
}

std::u16string IntToStr(std::int64_t Value) {
  std::u16string Result;
  AppendInteger(Result, Value);
  return Result;
}

bool SameValue(double A, double B, double Epsilon) noexcept {
  return A == B || std::fabs(A - B) <= Epsilon;
}

} // namespace unitlib
