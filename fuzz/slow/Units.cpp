#include "fuzz/slow/Units.h"

#include "fuzz/slow/DigitGroups.h"
#include "fuzz/slow/Imperial.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace unitlib::fuzz::slow {
namespace {

enum class TKind { Decimal, DecimalImperial, FractionalInch, FeetInch };

struct TClass {
  const char* Name;
  const char* Factor; // display unit in base units, as a decimal text
  TKind Kind = TKind::Decimal;
};

constexpr TClass Classes[] = {
    {"TKilogramsPerMeterParser", "1"},
    {"TPoundPerFootParser", "1.4881639461"},
    {"TDecimalFeetParser", "304.8", TKind::DecimalImperial},
    {"TFeetAndFractionalInchParser", "25.4", TKind::FeetInch},
    {"TDecimalInchParser", "25.4", TKind::DecimalImperial},
    {"TFractionalInchParser", "25.4", TKind::FractionalInch},
    {"TMetreParser", "1000"},
    {"TCentimeterParser", "10"},
    {"TMillimetreParser", "1"},
    {"TSquareFootParser", "92903.04"},
    {"TSquareInchParser", "645.16"},
    {"TSquareMeterParser", "1000000"},
    {"TSquareCentimetreParser", "100"},
    {"TSquareMillimeterParser", "1"},
    {"TCubicYardParser", "764554857.984"},
    {"TCubicFootParser", "28316846.592"},
    {"TCubicInchParser", "16387.064"},
    {"TCubicMeterParser", "1000000000"},
    {"TCubicCentimeterParser", "1000"},
    {"TCubicMillimetreParser", "1"},
    {"TKiogramsPerCubicMeterParser", "1"},
    {"TPoundPerCubicFootParser", "16.01846337396"},
    {"TPoundPerCubicYardParser", "0.593276421257783"},
    {"TCubicMetersPerMeterParser", "1"},
    {"TCubicFeetPerFootParser", "0.09290304"},
    {"TCubicYardsPerFootParser", "2.50838208"},
    {"TKilogramsParser", "1"},
    {"TBangParser", "0.45359237"},
    {"TTonParser", "1000"},
    {"TShortTonParser", "907"}, // whole on purpose
    {"TLongTonParser", "1016"}, // whole on purpose
    {"TCubicMetersPerSquareMetersParser", "1"},
    {"TCubicFeetPerSquareFeetParser", "0.3048"},
    {"TCubicYardsPerSquareFeetParser", "8.2296"},
};

const TClass& ClassOf(const TUnitSetup& Unit) {
  for (const TClass& Class : Classes)
    if (Lower(Unit.ClassName) == Lower(Wide(Class.Name))) return Class;
  std::abort(); // the targets choose from the table
}

[[noreturn]] void Refuse(TRefusal Kind) {
  throw TRefused{Kind};
}

int MScaleExponent(int ScaleIndex) {
  return ScaleIndex >= 3 && ScaleIndex <= 5 ? 3 * (ScaleIndex - 2) : 0;
}

std::u16string WithoutCommas(std::u16string_view Text) {
  std::u16string Result;
  for (const char16_t C : Text)
    if (C != u',') Result += C;
  return Result;
}

/// What the base class leaves of a text.
std::u16string BaseRemoveSymbol(const TUnitSetup& Unit, std::u16string_view Text) {
  for (std::size_t I = 1; I < Unit.Symbols.size(); ++I)
    if (!Unit.Symbols[I].empty() && EndsWith(Text, Unit.Symbols[I]))
      return std::u16string(Text.substr(0, Text.size() - Unit.Symbols[I].size()));
  return std::u16string(Text);
}

bool BaseIsValid(const TUnitSetup& Unit, std::u16string_view Text) {
  const TRead Number = ReadNumber(WithoutCommas(RemoveSymbol(Unit, Text)));
  if (!Number.Ok || Number.AllDigitsZero) return Number.Ok;
  const double Size = std::fabs(Number.Value);
  return 1e-15 < Size && Size < 1e15;
}

TValue AsFractionDouble(std::u16string_view Text, int ScaleIndex) {
  const TExact Inches = ExactInches(Text);
  const TExact Base = Inches * TExact(254, 10);
  const TExact Stored = Base / TExact::Power(10, MScaleExponent(ScaleIndex));
  // Whole inches and binary fractions are exact, so that their length is rounded once.
  const bool IsExact = ExactOf(ToDouble(Inches)) == Inches && ExactOf(ToDouble(Inches * 127)) == Inches * 127;
  return {ToDouble(Stored), !IsExact};
}

std::u16string CurrentSymbol(const TUnitSetup& Unit) {
  const bool Inside = Unit.SymbolIndex >= 0 && Unit.SymbolIndex < static_cast<int>(Unit.Symbols.size());
  return Inside ? Unit.Symbols[static_cast<std::size_t>(Unit.SymbolIndex)] : std::u16string();
}

int DecimalsOf(std::u16string_view Text) {
  const std::size_t Point = Text.find(u'.');
  return Point == Text.npos ? 0 : static_cast<int>(Text.size() - Point - 1);
}

bool FitsInt64(const TExact& Value) {
  return Value >= TExact(std::numeric_limits<std::int64_t>::min()) &&
         Value <= TExact(std::numeric_limits<std::int64_t>::max());
}

TExact NumberOf(std::u16string_view Text) {
  const TRead Number = ReadNumber(Text);
  if (!Number.Ok) Refuse(TRefusal::Convert);
  return Number.Exact;
}

std::u16string DecimalRoundOff(const TUnitSetup& Unit, const TExact& Value, TFlags Flags) {
  const std::u16string IncrementText = Unit.HasRound ? Unit.Increment : u"";
  const TExact Increment = IncrementText.empty() ? TExact(1) : NumberOf(IncrementText);
  TExact Shown = Value;
  if (!Flags.NoRound && Increment != 0) {
    const TExact Count = RoundClassic(Value / Increment);
    if (FitsInt64(Count)) Shown = Count * Increment; // otherwise too fine to round to
  }
  const std::u16string Number = PlainText(Shown);
  std::u16string Result = Number;
  if (Unit.UseDigitGroup && !Flags.NoDigitGroup) {
    if (Unit.GroupSize < 0) Refuse(TRefusal::List);
    Result = GroupDigits(Number, Unit.GroupSize);
  }
  if (Unit.SuppressTrail0) return Result;
  const bool AsTyped = Unit.HasRound && Unit.CanEdit;
  const int Missing =
      DecimalsOf(AsTyped ? IncrementText : PlainText(ToDouble(Increment))) - DecimalsOf(Number);
  if (Missing > 0) {
    if (DecimalsOf(Number) == 0) Result += u'.';
    Result.append(static_cast<std::size_t>(Missing), u'0');
  }
  return Result;
}

/// The increment of a unit with fractions, split at its bar.
struct TFraction {
  TExact Numerator, Denominator;
  bool HasBar;
};

TFraction GetFenZiFenMu(const TUnitSetup& Unit) {
  const std::u16string Text = Unit.HasRound ? Unit.Increment : u"";
  const std::size_t Bar = Text.find(u'/');
  TFraction Result{NumberOf(Text.substr(0, Bar)),
                   Bar == Text.npos ? TExact(1) : NumberOf(Text.substr(Bar + 1)), Bar != Text.npos};
  if (Result.Numerator == 0 || Result.Denominator == 0) Refuse(TRefusal::Convert);
  return Result;
}

TExact FittingInt64(const TExact& Value) {
  if (!FitsInt64(Value)) Refuse(TRefusal::Range);
  return Value;
}

TExact RoundedInches(const TFraction& Increment, const TExact& Value) {
  const TExact Step = Increment.Numerator / Increment.Denominator;
  return FittingInt64((FittingInt64(RoundClassic(Value / Step)) * Step).Truncated());
}

/// Euclid, with a remainder that takes the sign of A.
TExact Gcd(TExact A, TExact B) {
  while (B != 0) {
    const TExact Rest = A - (A / B).Truncated() * B;
    A = B;
    B = Rest;
  }
  return A;
}

std::u16string FractionPart(const TFraction& Increment, const TExact& Rest) {
  const TExact S = FittingInt64((Increment.Denominator / Increment.Numerator).Truncated());
  const TExact K = FittingInt64(RoundClassic(S * Rest));
  if (K <= 0) return {};
  const TExact G = Gcd(S, K);
  return Wide(" " + (K / G).WholeText() + "/" + (S / G).WholeText());
}

/// trunc(numerator / denominator); none for an increment with a bar.
bool WholeIncrement(const TFraction& Increment, TExact& Whole) {
  if (!Increment.HasBar) Whole = FittingInt64((Increment.Numerator / Increment.Denominator).Truncated());
  return !Increment.HasBar;
}

bool RoundsToFeet(const TFraction& Increment) {
  TExact Whole;
  return WholeIncrement(Increment, Whole) && (Whole / 12).IsWhole();
}

std::u16string FeetInchRoundOff(const TUnitSetup& Unit, const TExact& Value) {
  const TFraction Increment = GetFenZiFenMu(Unit);
  const TExact T = RoundedInches(Increment, Value), F = (T / 12).Truncated(), I = T - 12 * F;
  const std::u16string Feet = Wide(F.WholeText()) + u"'";
  if (RoundsToFeet(Increment)) return Feet;
  std::u16string Result;
  if (!(F == 0 && Unit.Suppress0Feet)) Result = Unit.SuppressSpace ? Feet : Feet + u" ";
  Result += Wide(I.WholeText());
  TExact Whole;
  const bool WholeInches = WholeIncrement(Increment, Whole) && Whole > 0 && Whole < 12;
  return WholeInches ? Result : Result + FractionPart(Increment, Value - T);
}

std::u16string FractionalInchRoundOff(const TUnitSetup& Unit, const TExact& Value) {
  const TFraction Increment = GetFenZiFenMu(Unit);
  const TExact W = RoundedInches(Increment, Value);
  return Wide(W.WholeText()) + FractionPart(Increment, Value - W);
}

std::u16string SymbolPart(const TUnitSetup& Unit, TKind Kind, TFlags Flags) {
  const std::u16string Symbol = CurrentSymbol(Unit) == u"None" ? u"" : CurrentSymbol(Unit);
  switch (Kind) {
  case TKind::Decimal:
    return Flags.NoSymbol || Symbol.empty() ? u"" : u" " + Symbol;
  case TKind::DecimalImperial:
    return Flags.NoSymbol ? u"" : Symbol;
  case TKind::FractionalInch:
    return Flags.NoSymbol ? u"" : u"\"";
  default:
    return RoundsToFeet(GetFenZiFenMu(Unit)) ? u"" : u"\"";
  }
}

} // namespace

int ClassCount() {
  return static_cast<int>(std::size(Classes));
}
const char* ClassName(int Index) {
  return Classes[Index].Name;
}
bool IsPlainDecimal(const TUnitSetup& Unit) {
  return ClassOf(Unit).Kind == TKind::Decimal;
}

double GetScale(const TUnitSetup& Unit, int ScaleIndex) {
  const std::string Exponent = "e-" + std::to_string(MScaleExponent(ScaleIndex));
  return std::strtod((ClassOf(Unit).Factor + Exponent).c_str(), nullptr);
}

std::u16string RemoveSymbol(const TUnitSetup& Unit, std::u16string_view Text) {
  if (ClassOf(Unit).Kind != TKind::DecimalImperial) return BaseRemoveSymbol(Unit, Text);
  const std::u16string Rest = WithoutCommas(BaseRemoveSymbol(Unit, Text));
  return IsNumeric(Rest) ? Rest : std::u16string(Text);
}

bool IsValid(const TUnitSetup& Unit, std::u16string_view Text) {
  const TKind Kind = ClassOf(Unit).Kind;
  if (Kind == TKind::Decimal) return BaseIsValid(Unit, Text);
  if (Kind == TKind::DecimalImperial) return BaseIsValid(Unit, Text) || IsFraction(Text);
  if (BaseIsValid(Unit, Text) && Text.find(u'.') == Text.npos) return true;
  return IsFraction(Text);
}

TValue AsDouble(const TUnitSetup& Unit, std::u16string_view Text, int ScaleIndex) {
  const TKind Kind = ClassOf(Unit).Kind;
  const std::u16string Rest = RemoveSymbol(Unit, Text);
  const TRead Number = ReadNumber(WithoutCommas(Rest));
  if (Number.Ok) {
    const double Value = Number.Value * GetScale(Unit, ScaleIndex);
    if (!std::isfinite(Value)) Refuse(TRefusal::Range);
    return {Value, false};
  }
  if (Kind == TKind::Decimal) Refuse(TRefusal::Convert);
  if (Kind == TKind::DecimalImperial) return AsFractionDouble(GetIdentifiableForm(Rest), ScaleIndex);
  return AsFractionDouble(WithoutCommas(Rest), ScaleIndex);
}

std::u16string AsString(const TUnitSetup& Unit, double Value, int ScaleIndex, TFlags Flags) {
  const TKind Kind = ClassOf(Unit).Kind;
  if (!std::isfinite(Value)) Refuse(TRefusal::Range);
  const double D = Value / GetScale(Unit, ScaleIndex);
  if (!std::isfinite(D)) Refuse(TRefusal::Range);
  std::u16string Sign;
  if (D < 0) Sign = u"-";
  if (D > 0 && Unit.ShowPlus && !Flags.NoPlusSign) Sign = u"+";
  const TExact Size = ExactOf(std::fabs(D));
  const std::u16string Number = Kind == TKind::FeetInch         ? FeetInchRoundOff(Unit, Size)
                                : Kind == TKind::FractionalInch ? FractionalInchRoundOff(Unit, Size)
                                                                : DecimalRoundOff(Unit, Size, Flags);
  return Sign + Number + SymbolPart(Unit, Kind, Flags);
}

std::u16string StoreToDisplay(const TUnitSetup& Unit, double Value, int ScaleIndex, bool AppendSymbol,
                              TFlags Flags) {
  const std::u16string Text = AsString(Unit, std::fabs(Value) <= 1e-12 ? 0.0 : Value, ScaleIndex, Flags);
  const std::u16string Symbol = CurrentSymbol(Unit);
  const bool HasSymbol = (!Symbol.empty() && Lower(Symbol) != u"none") || Unit.Code == 11 || Unit.Code == 13;
  if (!AppendSymbol || HasSymbol) return Text;
  return Text + u" " + (!Symbol.empty() && Symbol != u"None" ? Symbol : Unit.SymbolWhenNone);
}

} // namespace unitlib::fuzz::slow
