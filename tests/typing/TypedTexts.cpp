#include "tests/typing/TypedTexts.h"

#include "unitlib/rtl/Text.h"

namespace unitlib::test {
namespace {

constexpr double Inch = 25.4; // mm

int Below(TRandom& Random, int Count) {
  return static_cast<int>(Random() % static_cast<unsigned>(Count));
}

template <std::size_t N> std::u16string Pick(TRandom& Random, const char16_t* const (&Choices)[N]) {
  return Choices[Below(Random, static_cast<int>(N))];
}

std::u16string Number(int Value) {
  return FromUtf8(std::to_string(Value));
}

/// Digits with a point, and their value over the power of ten: exact.
struct TDecimal {
  std::u16string Text;
  double Value;
};

TDecimal MakeDecimal(TRandom& Random, int Max) {
  constexpr int Powers[] = {1, 10, 100, 1000};
  const int Places = Below(Random, 4), Power = Powers[Places];
  const int Whole = Below(Random, Max), Behind = Below(Random, Power);
  std::string Digits = std::to_string(Whole);
  if (Places > 0) {
    const std::string Rest = std::to_string(Behind);
    Digits += "." + std::string(static_cast<std::size_t>(Places) - Rest.size(), '0') + Rest;
  }
  return {FromUtf8(Digits), Whole + static_cast<double>(Behind) / Power};
}

/// The words for feet and inches of one style, and what stands between.
struct TStyle {
  const char16_t *Foot, *Inch, *Between;
};

constexpr TStyle Styles[] = {
    {u"'", u"\"", u""},
    {u"'", u"\"", u" "},
    {u"'", u"\"", u"-"},
    {u"'", u"\"", u" - "},
    {u"\u2032", u"\u2033", u""},
    {u"\u2019", u"\u201D", u"-"},
    {u"'", u"''", u"-"},
    {u" ft", u" in", u" "},
    {u"ft", u"in", u" "},
    {u" feet", u" inches", u" "},
    {u" ft.", u" in.", u" - "},
    {u"'", u"\"", u"\u2009"},
    {u"'", u"\"", u"\u2013"},
    {u"\u00B4", u"\u00B4\u00B4", u""},
    {u" feet", u" inches", u", "},
};

struct TFraction {
  std::u16string Text; // empty: none
  double Value = 0;
  bool Piece = false;
};

TFraction MakeFraction(TRandom& Random) {
  struct TPiece {
    const char16_t* Text;
    double Value;
  };
  constexpr TPiece Pieces[] = {{u"\u00BD", 0.5},   {u"\u00BC", 0.25},  {u"\u00BE", 0.75},
                               {u"\u215B", 0.125}, {u"\u215E", 0.875}, {u"\u2153", 1 / 3.0}};
  if (Below(Random, 3) == 0) {
    const TPiece& Piece = Pieces[Below(Random, 6)];
    return {Piece.Text, Piece.Value, true};
  }
  const int Denominator = 1 << (1 + Below(Random, 6));
  const int Numerator = 1 + Below(Random, Denominator - 1);
  const std::u16string Bar = Below(Random, 6) == 0 ? u"\u2044" : u"/";
  return {Number(Numerator) + Bar + Number(Denominator), static_cast<double>(Numerator) / Denominator, false};
}

/// Inches with or without a fraction or decimals, below a foot.
TDecimal MakeInches(TRandom& Random) {
  const int Whole = Below(Random, 12);
  switch (Below(Random, 4)) {
  case 0:
    return {Number(Whole), static_cast<double>(Whole)};
  case 1:
    return MakeDecimal(Random, 12);
  default: {
    const TFraction Fraction = MakeFraction(Random);
    constexpr const char16_t* Gaps[] = {u" ", u"-", u" ", u"\u00A0"};
    const std::u16string Gap = Fraction.Piece && Below(Random, 2) == 0 ? u"" : Pick(Random, Gaps);
    return {Number(Whole) + Gap + Fraction.Text, Whole + Fraction.Value};
  }
  }
}

TDecimal MakeFeetInches(TRandom& Random) {
  const TStyle& Style = Styles[Below(Random, static_cast<int>(std::size(Styles)))];
  const int Feet = Below(Random, 300);
  const TDecimal Inches = MakeInches(Random);
  switch (Below(Random, 6)) {
  case 0: {
    const TDecimal Decimal = MakeDecimal(Random, 300);
    return {Decimal.Text + Style.Foot, Decimal.Value * 12 * Inch};
  }
  case 1:
    return {Inches.Text + Style.Inch, Inches.Value * Inch};
  default:
    return {Number(Feet) + Style.Foot + Style.Between + Inches.Text + Style.Inch,
            (Feet * 12 + Inches.Value) * Inch};
  }
}

struct TUnitWord {
  const char16_t* Text;
  double Size; // in base units, exact: international yard and pound, 1959
};

constexpr TUnitWord LengthWords[] = {{u" m", 1000},      {u"m", 1000},    {u" cm", 10},   {u"mm", 1},
                                     {u" mm", 1},        {u" ft", 304.8}, {u" in", 25.4}, {u" yd", 914.4},
                                     {u" metres", 1000}, {u"'", 304.8},   {u"\"", 25.4},  {u" LF", 304.8}};
constexpr TUnitWord AreaWords[] = {{u" SF", 92903.04}, {u" sq ft", 92903.04}, {u" m2", 1e6},
                                   {u" m\u00B2", 1e6}, {u"sqm", 1e6},         {u" SY", 836127.36},
                                   {u" in2", 645.16},  {u" cm\u00B2", 100}};
constexpr TUnitWord VolumeWords[] = {
    {u" CY", 764554857.984}, {u" cu yd", 764554857.984}, {u" CF", 28316846.592}, {u" cu. ft.", 28316846.592},
    {u" m3", 1e9},           {u" m\u00B3", 1e9},         {u" liters", 1e6},      {u" in3", 16387.064}};
constexpr TUnitWord MassWords[] = {
    {u" lb", 0.45359237}, {u" lbs", 0.45359237}, {u"kg", 1}, {u" g", 0.001}, {u" tonnes", 1000}};

template <std::size_t N> TDecimal MakeWord(TRandom& Random, const TUnitWord (&Words)[N]) {
  const TUnitWord& Word = Words[Below(Random, static_cast<int>(N))];
  const TDecimal Decimal = MakeDecimal(Random, 5000);
  return {Decimal.Text + Word.Text, Decimal.Value * Word.Size};
}

/// A length that an expression takes: no dashes inside.
TDecimal MakeOperand(TRandom& Random) {
  if (Below(Random, 3) == 0) return MakeWord(Random, LengthWords);
  const int Feet = Below(Random, 300), Whole = Below(Random, 12), Eighths = 1 + Below(Random, 7);
  if (Below(Random, 2) == 0)
    return {Number(Feet) + u"' " + Number(Whole) + u"\"", (Feet * 12.0 + Whole) * Inch};
  return {Number(Feet) + u"' " + Number(Whole) + u" " + Number(Eighths) + u"/8\"",
          (Feet * 12 + Whole + Eighths / 8.0) * Inch};
}

TTypedText MakeTree(TRandom& Random, int Depth) {
  if (Depth == 0 || Below(Random, 3) == 0) {
    const TDecimal Operand = MakeOperand(Random);
    return {Operand.Text, Operand.Value, true, Operand.Value};
  }
  const TTypedText Left = MakeTree(Random, Depth - 1);
  const double L = *Left.Value;
  if (Below(Random, 3) == 0) {
    const int Factor = 2 + Below(Random, 8);
    const bool Times = Below(Random, 2) == 0;
    return {u"(" + Left.Text + (Times ? u") * " : u") / ") + Number(Factor), Times ? L * Factor : L / Factor,
            true, Left.Largest * 10};
  }
  const TTypedText Right = MakeTree(Random, Depth - 1);
  constexpr const char16_t* Plus[] = {u" + ", u"+", u" - -"};
  constexpr const char16_t* Minus[] = {u" - ", u"-", u" + -"};
  const bool Add = Below(Random, 2) == 0;
  const std::u16string Text =
      u"(" + Left.Text + u")" + (Add ? Pick(Random, Plus) : Pick(Random, Minus)) + u"(" + Right.Text + u")";
  return {Text, Add ? L + *Right.Value : L - *Right.Value, true, Left.Largest + Right.Largest};
}

} // namespace

TTypedText MakeLength(TRandom& Random) {
  const TDecimal Made = Below(Random, 4) == 0 ? MakeWord(Random, LengthWords) : MakeFeetInches(Random);
  const bool Negative = Below(Random, 5) == 0;
  return {(Negative ? u"-" : u"") + Made.Text, Negative ? -Made.Value : Made.Value, true, Made.Value};
}

TTypedText MakeSum(TRandom& Random) {
  return MakeTree(Random, 1 + Below(Random, 3));
}

TTypedText MakeAmount(TRandom& Random, int Measure) {
  constexpr int Area = 1, Volume = 2, Mass = 6;
  const TDecimal Made = Measure == Area     ? MakeWord(Random, AreaWords)
                        : Measure == Volume ? MakeWord(Random, VolumeWords)
                        : Measure == Mass   ? MakeWord(Random, MassWords)
                                            : MakeWord(Random, LengthWords);
  return {Made.Text, Made.Value, true, Made.Value};
}

TTypedText MakeNoise(TRandom& Random) {
  constexpr std::u16string_view Characters = u"0123456789123456'\"/ -'\"/ -.,+ftinm";
  std::u16string Text;
  for (int Length = 1 + Below(Random, 10); Length > 0; --Length)
    Text += Characters[static_cast<std::size_t>(Below(Random, static_cast<int>(Characters.size())))];
  return {Text, std::nullopt, false, 0};
}

TTypedText Mutate(const TTypedText& Text, TRandom& Random) {
  constexpr std::u16string_view Characters = u"0123456789'\"/ -.,+*()ftinm\u00BD\u2032\u2033\u2013\u00A0";
  TTypedText Result{Text.Text, std::nullopt, false, 0};
  for (int Edits = 1 + Below(Random, 3); Edits > 0; --Edits) {
    std::u16string& T = Result.Text;
    const auto At = static_cast<std::size_t>(Below(Random, static_cast<int>(T.size()) + 1));
    const char16_t C =
        Characters[static_cast<std::size_t>(Below(Random, static_cast<int>(Characters.size())))];
    const int Edit = Below(Random, 3);
    if (Edit == 0)
      T.insert(At, 1, C);
    else if (At < T.size() && Edit == 1)
      T.erase(At, 1);
    else if (At < T.size())
      T[At] = C;
  }
  return Result;
}

} // namespace unitlib::test
