#include "bench/Limits.h"

#include <cstdint>

namespace unitlib::bench {
namespace {

constexpr bool IsDigit(char16_t C) {
  return C >= u'0' && C <= u'9';
}

/// Writes a text from its end towards its start.
class TBackwards {
public:
  void Put(char16_t C) { *--FBegin = C; }
  void Digits(std::uint32_t Value) {
    do Put(static_cast<char16_t>(u'0' + Value % 10));
    while ((Value /= 10) != 0);
  }
  std::u16string Text() const { return std::u16string(FBegin, FEnd); }
  const char16_t* Begin() const { return FBegin; }
  const char16_t* End() const { return FEnd; }

private:
  char16_t FBuffer[48];
  char16_t* const FEnd = FBuffer + 48;
  char16_t* FBegin = FEnd;
};

/// Sixteenths of an inch of "5'6 1/2"; Pos moves behind the inch mark. False where the shape ends early.
bool ReadSixteenths(std::u16string_view Text, std::size_t& Pos, std::uint64_t& Sixteenths) {
  const auto Number = [&](std::uint64_t& Value) {
    const std::size_t Start = Pos;
    for (Value = 0; Pos < Text.size() && IsDigit(Text[Pos]); ++Pos)
      Value = Value * 10 + static_cast<unsigned>(Text[Pos] - u'0');
    return Pos > Start;
  };
  const auto Mark = [&](char16_t C) { return Pos < Text.size() && Text[Pos] == C && ++Pos; };
  std::uint64_t Feet = 0, Inches = 0, Numerator = 0, Denominator = 0;
  if (!Number(Feet) || !Mark(u'\'') || !Number(Inches) || !Mark(u' ') || !Number(Numerator) || !Mark(u'/') ||
      !Number(Denominator) || !Mark(u'"') || Denominator == 0)
    return false;
  Sixteenths = (Feet * 12 + Inches) * 16 + Numerator * 16 / Denominator;
  return true;
}

/// Recursive descent over numbers, + - * / and brackets.
class TEvaluator {
public:
  explicit TEvaluator(std::u16string_view Text) : FNext(Text.data()), FEnd(Text.data() + Text.size()) {}

  double Sum() {
    double Value = Product();
    while (FNext != FEnd && (*FNext == u'+' || *FNext == u'-'))
      Value = *FNext++ == u'+' ? Value + Product() : Value - Product();
    return Value;
  }

private:
  double Product() {
    double Value = Operand();
    while (FNext != FEnd && (*FNext == u'*' || *FNext == u'/'))
      Value = *FNext++ == u'*' ? Value * Operand() : Value / Operand();
    return Value;
  }
  double Operand() {
    if (FNext != FEnd && *FNext == u'(') {
      ++FNext;
      const double Value = Sum();
      ++FNext;
      return Value;
    }
    std::int64_t Value = 0;
    for (; FNext != FEnd && IsDigit(*FNext); ++FNext) Value = Value * 10 + (*FNext - u'0');
    return static_cast<double>(Value);
  }

  const char16_t* FNext;
  const char16_t* FEnd;
};

} // namespace

std::u16string LimitMetres(double Millimetres) {
  auto Value = static_cast<std::uint32_t>(Millimetres + 0.5);
  TBackwards Out;
  Out.Put(u'm');
  Out.Put(u' ');
  for (int I = 0; I < 3; ++I, Value /= 10) Out.Put(static_cast<char16_t>(u'0' + Value % 10));
  Out.Put(u'.');
  for (int Count = 0; Value != 0 || Count == 0; Value /= 10, ++Count) {
    if (Count != 0 && Count % 3 == 0) Out.Put(u',');
    Out.Put(static_cast<char16_t>(u'0' + Value % 10));
  }
  return Out.Text();
}

std::u16string LimitFeet(double Millimetres) {
  const auto Sixteenths = static_cast<std::uint32_t>(Millimetres * (16 / 25.4) + 0.5);
  std::uint32_t Numerator = Sixteenths % 16, Denominator = 16;
  const std::uint32_t Inches = Sixteenths / 16;
  TBackwards Out;
  Out.Put(u'"');
  if (Numerator != 0) {
    for (; Numerator % 2 == 0; Numerator /= 2) Denominator /= 2;
    Out.Digits(Denominator);
    Out.Put(u'/');
    Out.Digits(Numerator);
    Out.Put(u' ');
  }
  Out.Digits(Inches % 12);
  Out.Put(u' ');
  Out.Put(u'\'');
  Out.Digits(Inches / 12);
  return Out.Text();
}

double LimitReadMetres(std::u16string_view Text) {
  std::uint64_t Value = 0;
  for (const char16_t C : Text) {
    if (C == u' ') break;
    if (IsDigit(C)) Value = Value * 10 + static_cast<unsigned>(C - u'0');
  }
  return static_cast<double>(Value); // three decimals of a metre are whole millimetres
}

double LimitReadFeet(std::u16string_view Text) {
  std::size_t Pos = 0;
  std::uint64_t Sixteenths = 0;
  if (!ReadSixteenths(Text, Pos, Sixteenths) || Pos != Text.size()) return -1;
  return static_cast<double>(Sixteenths) * (25.4 / 16);
}

bool LimitIsLength(std::u16string_view Text) {
  static constexpr auto IsBad = [] {
    struct {
      bool Of[128];
    } Table{};
    for (int C = 0; C < 128; ++C)
      Table.Of[C] = std::u16string_view(u"0123456789.,'\"/- ").find(static_cast<char16_t>(C)) ==
                    std::u16string_view::npos;
    return Table;
  }();
  bool Bad = Text.empty();
  for (const char16_t C : Text) Bad |= C >= 128 || IsBad.Of[C];
  return !Bad;
}

std::u16string LimitImperialNumbers(std::u16string_view Text) {
  std::u16string Result;
  Result.reserve(Text.size());
  for (std::size_t Pos = 0; Pos < Text.size();) {
    std::size_t End = Pos;
    std::uint64_t Sixteenths = 0;
    if (!IsDigit(Text[Pos]) || !ReadSixteenths(Text, End, Sixteenths)) {
      Result.push_back(Text[Pos++]);
      continue;
    }
    Pos = End;
    const std::uint64_t Exact = Sixteenths * 15875; // 0.1 micrometres
    const auto Whole = static_cast<std::uint32_t>(Exact / 10'000'000);
    auto Value = static_cast<std::uint32_t>(Exact % 10'000'000);
    TBackwards Out;
    bool Shown = false;
    for (int I = 0; I < 7; ++I, Value /= 10) {
      if (!Shown && Value % 10 == 0) continue;
      Shown = true;
      Out.Put(static_cast<char16_t>(u'0' + Value % 10));
    }
    if (Shown) Out.Put(u'.');
    Out.Digits(Whole);
    Result.append(Out.Begin(), Out.End());
  }
  return Result;
}

double LimitEvaluate(std::u16string_view Text) {
  return TEvaluator(Text).Sum();
}

} // namespace unitlib::bench
