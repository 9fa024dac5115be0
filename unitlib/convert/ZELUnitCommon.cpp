#include "unitlib/convert/ZELUnitCommon.h"

#include "unitlib/convert/ZELUnitDigitGroupParserRegister.h"
#include "unitlib/convert/ZELUnitParseRegister.h"
#include "unitlib/model/ZELUnitMgr.h"
#include "unitlib/rtl/Errors.h"
#include "unitlib/rtl/ExactProduct.h"
#include "unitlib/rtl/ExactRounding.h"
#include "unitlib/rtl/Numbers.h"
#include "unitlib/rtl/Text.h"

#include <cmath>

namespace unitlib {
namespace {

/// The increment of the current round as the rounding uses it: empty and fixed for a unit without a current
/// round.
struct TIncrementText {
  std::u16string_view Text;
  bool CanEdit = false;
};

TIncrementText CurrentIncrement(const TUnit& Unit) {
  const TRound* Round = Unit.GetCurRound();
  if (!Round) return {};
  return {Round->Increment, Round->IncrementCanEdit};
}

int DecimalsOf(std::u16string_view Text) {
  const size_t Point = Text.find(u'.');
  return Point == std::u16string_view::npos ? 0 : static_cast<int>(Text.size() - Point - 1);
}

/// The rounded value as digits. An increment of 0, and one so small that its count overflows, leave the value
/// as it is.
TDecimal15 RoundedDigits(double Value, const TExactNumber& Increment, bool NoRound) {
  if (NoRound || Increment.Value == 0) return ToDecimal15(Value);
  const auto Rounded = RoundToMultiple(Value, Increment);
  return Rounded ? *Rounded : ToDecimal15(Value);
}

void PadZeros(TStringBuilder& Builder, int NumberDecimals, int Wanted) {
  if (Wanted <= NumberDecimals) return;
  if (NumberDecimals == 0) Builder.push_back(u'.');
  Builder.append(static_cast<size_t>(Wanted - NumberDecimals), u'0');
}

/// Decimals that the number text is padded to: those of the increment as typed, or of its plain text.
int PaddedDecimals(const TIncrementText& Round, const TExactNumber& Increment) {
  if (Round.CanEdit) return DecimalsOf(Round.Text);
  constexpr std::uint64_t FifteenDigits = 1'000'000'000'000'000;
  if (Increment.IsSimple && Increment.Mantissa < FifteenDigits)
    return TPlainText(ToDecimal15(Increment.Mantissa, -Increment.Scale), false).Decimals();
  return DecimalsOf(FloatToPlainStr(Increment.Value));
}

/// Decimals that PaddedDecimals gives for a simple increment.
int SimpleDecimals(const TIncrementText& Round, const TExactNumber& Increment) {
  int Decimals = Increment.Scale;
  if (Round.CanEdit) return Decimals;
  for (std::uint64_t Mantissa = Increment.Mantissa; Decimals > 0 && Mantissa % 10 == 0; Mantissa /= 10)
    --Decimals;
  return Decimals;
}

/// Digits per group of the current digit group; 0 where a class of the host, or none, groups.
int CurrentGroupSize() {
  return LibraryGroupSize(TSystemUnitDataManager::CurDigitGroup()->DigitGroupParserClassName);
}

[[noreturn]] void RaiseTooLarge(double Given) {
  const std::u16string Text = FloatToStr(Given); // raises by itself where Given is not finite
  throw ERangeError(u"Too large to be shown: " + Text, Text);
}

[[noreturn, gnu::noinline]] void RaiseNoUnit() {
  throw EListError(u"No unit to convert values of", u"");
}

void RequireFinite(double Value, double Given) {
  if (!std::isfinite(Value)) RaiseTooLarge(Given);
}

} // namespace

TCommonUnitParser::TCommonUnitParser(TUnit* Unit) : FUnit(Unit) {
  if (!Unit) RaiseNoUnit();
}

void TCommonUnitParser::AppendSymbol(TStringBuilder& Builder) const {
  const std::u16string& Symbol = FUnit->GetCurUnitSymbolDescription();
  if (Symbol.empty() || Symbol == _SUnitNone) return;
  Builder.push_back(u' ');
  Builder.append(Symbol);
}

void TCommonUnitParser::RoundOff(double Value, TStringBuilder& Builder, bool NoDigitGroup,
                                 bool NoRound) const {
  RequireFinite(Value, Value);
  const TIncrementText Round = CurrentIncrement(*FUnit);
  const TExactNumber Increment(Round.Text.empty() ? u"1" : Round.Text);
  const bool Grouped = FUnit->UseDigitGroup.Checked && !NoDigitGroup;
  std::uint64_t Whole = 0;
  if (!NoRound && Value >= 0 && RoundToMultipleWhenClear(Value, Increment, Whole)) {
    const int GroupSize = Grouped ? CurrentGroupSize() : 0;
    if (!Grouped || GroupSize != 0) {
      const int Least = FUnit->SuppressTrail0.Checked ? 0 : SimpleDecimals(Round, Increment);
      return AppendFixed(Builder, Whole, Increment.Scale, Least, GroupSize);
    }
  }
  const TPlainText Number(RoundedDigits(std::fabs(Value), Increment, NoRound), Value < 0);
  if (Grouped)
    AppendGrouped(Builder, Number.View());
  else
    Builder.append(Number.View());
  if (!FUnit->SuppressTrail0.Checked) PadZeros(Builder, Number.Decimals(), PaddedDecimals(Round, Increment));
}

void TCommonUnitParser::AppendGrouped(TStringBuilder& Builder, std::u16string_view NumberText) const {
  // The classes of the library need no object to group a text; one of the host's makes its own.
  if (const int Size = CurrentGroupSize())
    AppendGroupedDigits(Builder, NumberText, Size);
  else
    Builder.append(
        GetDigitGroupParser(TSystemUnitDataManager::CurDigitGroup()->DigitGroupParserClassName, NumberText)
            ->ToStr());
}

bool TCommonUnitParser::CheckFractionDisplay(std::u16string_view Text) const {
  return IsFraction(Text);
}

double TCommonUnitParser::AsFractionDouble(std::u16string_view Text, int ScaleIndex) const {
  // 25.4 mm, exact: international inch, 1959. As 127 / 5 the product of whole inches and binary fractions is
  // exact and only the quotient rounds: 3" is 76.2, where 25.4 * 3 is not.
  return GetInchNumByFraction(Text) * 127 / (5 * GetMScale(ScaleIndex));
}

std::vector<std::u16string> TCommonUnitParser::GetUnitArr() const {
  return FUnit->GetUnitSymbolDescriptionArray();
}

bool TCommonUnitParser::IsValid(std::u16string_view Text) const {
  std::u16string Buffer;
  const TNumberText Number = ReadNumberWithCommas(CutSymbol(Text, Buffer));
  if (!Number.Ok || Number.IsZero) return Number.Ok;
  const double Absolute = std::fabs(Number.Value);
  return Absolute > 1e-15 && Absolute < 1e15; // both bounds exclusive on purpose
}

void TCommonUnitParser::AppendNumber(TStringBuilder& Builder, double Value, int ScaleIndex, bool NoDigitGroup,
                                     bool NoRound, bool NoPlusSign) const {
  const double Shown = Value / GetScale(ScaleIndex);
  RequireFinite(Shown, Value);
  if (Shown < 0)
    Builder.push_back(u'-');
  else if (Shown > 0 && FUnit->ShowPlusForPosValue.Checked && !NoPlusSign)
    Builder.push_back(u'+');
  RoundOff(std::fabs(Shown), Builder, NoDigitGroup, NoRound);
}

std::u16string TCommonUnitParser::AsString(double Value, int ScaleIndex, bool NoSymbol, bool NoDigitGroup,
                                           bool NoRound, bool NoPlusSign) const {
  TStringBuilder Builder;
  Builder.reserve(UsualLength);
  AppendNumber(Builder, Value, ScaleIndex, NoDigitGroup, NoRound, NoPlusSign);
  if (!NoSymbol) AppendSymbol(Builder);
  return Builder;
}

double TCommonUnitParser::AsDouble(std::u16string_view Text, int ScaleIndex) const {
  std::u16string Buffer;
  const std::u16string_view Rest = CutSymbol(Text, Buffer);
  const TNumberText Number = ReadNumberWithCommas(Rest);
  // Refused with the text that was to be a number.
  return RequireStorable(
      (Number.Ok ? Number.Value : StrToFloat(RemoveDelimiters(Rest))) * GetScale(ScaleIndex), Text);
}

double TCommonUnitParser::RequireStorable(double Value, std::u16string_view Text) {
  if (std::isfinite(Value)) return Value;
  throw ERangeError(u"Too large to be stored: " + std::u16string(Text), Text);
}

double TCommonUnitParser::GetScale(int ScaleIndex) const {
  return GetMScale(ScaleIndex);
}

std::u16string TCommonUnitParser::RemoveSymbol(std::u16string_view Text) const {
  const std::vector<std::u16string> Symbols = GetUnitArr();
  for (size_t I = 1; I < Symbols.size(); ++I)
    if (!Symbols[I].empty() && EndsWithText(Text, Symbols[I])) {
      Text.remove_suffix(Symbols[I].size());
      break;
    }
  return std::u16string(Text);
}

std::u16string_view TCommonUnitParser::CutSymbol(std::u16string_view Text, std::u16string& Buffer) const {
  Buffer = RemoveSymbol(Text);
  return Buffer;
}

std::u16string_view TCommonUnitParser::WithoutSymbol(std::u16string_view Text) const noexcept {
  for (int I = 1; I < FUnit->UnitSymbolContainer.Count(); ++I) {
    const std::u16string& Symbol = FUnit->UnitSymbolContainer.Find(I)->Description;
    if (Symbol.empty() || !EndsWithText(Text, Symbol)) continue;
    Text.remove_suffix(Symbol.size());
    break;
  }
  return Text;
}

double TCommonUnitParser::GetMScale(int ScaleIndex) noexcept {
  switch (ScaleIndex) {
  case 3:
    return 1e3;
  case 4:
    return 1e6;
  case 5:
    return 1e9;
  default:
    return 1;
  }
}

std::u16string TCommonUnitParser::GetUnitSymbol() const {
  const std::u16string& Symbol = FUnit->GetCurUnitSymbolDescription();
  return Symbol == _SUnitNone ? std::u16string() : Symbol;
}

std::u16string TCommonUnitParser::RemoveDelimiters(std::u16string_view Text) {
  std::u16string Result(Text);
  std::erase(Result, u',');
  return Result;
}

std::int64_t TCommonUnitParser::RoundClassic(double Value) {
  return RoundClassicToInt64(Value);
}

double TCommonUnitParser::ScaleOf(std::int64_t Digits, int Decimals, int ScaleIndex) noexcept {
  const double Divisor = GetMScale(ScaleIndex) * PowersOf10[Decimals];
  if (Divisor == 1) return static_cast<double>(Digits); // spares the division where it changes nothing
  // Digits and a power of ten up to 10^22 are exact doubles, so the quotient is rounded once.
  return static_cast<double>(Digits) / Divisor;
}

std::unique_ptr<TCommonUnitParser> TCommonUnitCommand::GetParser() const {
  TUnit* Unit = FindUnit();
  return Unit ? GetUnitParser(Unit->UnitParserClassName, Unit) : nullptr;
}

TUnit* TCommonUnitCommand::FindUnit() const {
  return TSystemUnitDataManager::CurConfigUnit(FClassifyCode);
}

bool TCommonUnitCommand::CheckDisplay(std::u16string_view AText) const {
  const auto Parser = GetParser();
  return Parser && Parser->IsValid(AText);
}

std::u16string TCommonUnitCommand::StoreToDisplay(double AValue, int AScaleIndex, bool NoSymbol,
                                                  bool NoDigitGroup, bool NoRound, bool NoPlusSign) const {
  const auto Parser = GetParser();
  return Parser ? Parser->AsString(AValue, AScaleIndex, NoSymbol, NoDigitGroup, NoRound, NoPlusSign)
                : FloatToStr(AValue);
}

double TCommonUnitCommand::DisplayToStore(std::u16string_view AText, int AScaleIndex) const {
  const auto Parser = GetParser();
  return Parser ? Parser->AsDouble(AText, AScaleIndex) : 0.0;
}

std::u16string TCommonUnitCommand::GetUnitSymbol(bool AEmptyForFeetInch, std::u16string& ASymbol) const {
  ASymbol.clear();
  const TUnit* Unit = FindUnit();
  if (!Unit) return ASymbol;
  ASymbol = Unit->GetCurUnitSymbolDescription();
  if (!ASymbol.empty() && ASymbol != _SUnitNone) return ASymbol;
  const bool Empty = AEmptyForFeetInch && Unit->UnitIdentifyCode == FeetAndFractionalInchCode;
  ASymbol = Empty ? std::u16string() : Unit->DefUnitSymbolWhenNone;
  return ASymbol;
}

bool TCommonUnitCommand::HasUnitSymbol() const {
  const TUnit* Unit = FindUnit();
  if (!Unit) return false;
  const std::u16string& Symbol = Unit->GetCurUnitSymbolDescription();
  if (!Symbol.empty() && !SameText(Symbol, _SUnitNone)) return true;
  return Unit->UnitIdentifyCode == FeetAndFractionalInchCode || Unit->UnitIdentifyCode == FractionalInchCode;
}

} // namespace unitlib
