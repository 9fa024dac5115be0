#include "unitlib/convert/ZELUnitConvertor.h"

#include "unitlib/convert/ZELUnitCommon.h"
#include "unitlib/convert/ZELUnitParseRegister.h"
#include "unitlib/model/ZELUnitMgr.h"
#include "unitlib/rtl/Errors.h"
#include "unitlib/rtl/Numbers.h"
#include "unitlib/rtl/PerlRegEx.h"
#include "unitlib/rtl/Text.h"

namespace unitlib {
namespace {

constexpr int NoMeasure = -1;
constexpr double ZeroTolerance = 1e-12;

double WithoutResidue(double Value) {
  return SameValue(Value, 0.0, ZeroTolerance) ? 0.0 : Value;
}

TUnit* CurrentUnit(int Code) {
  return TSystemUnitDataManager::CurConfigUnit(Code);
}

/// Raises EConvertError where there is no parser.
void RequireParser(const TUnitParserHere& Parser, int Measure) {
  if (Parser) return;
  const std::u16string Code = IntToStr(Measure);
  throw EConvertError(u"No unit parser is registered for measure " + Code, Code);
}

/// Appends the measure's symbol where its unit shows none by itself.
void AppendMissingSymbol(std::u16string& Text, int Measure) {
  const TCommonUnitCommand Command(Measure);
  if (Command.HasUnitSymbol()) return;
  std::u16string Symbol;
  Text.append(u" ").append(Command.GetUnitSymbol(false, Symbol));
}

std::u16string ShownText(int Measure, double Value, int ScaleIndex, bool AppendSymbol, bool NoSymbol,
                         bool NoDigitGroup, bool NoRound, bool NoPlusSign) {
  const double Stored = WithoutResidue(Value);
  const TUnitParserHere Parser(CurrentUnit(Measure));
  std::u16string Text =
      Parser ? Parser->AsString(Stored, ScaleIndex, NoSymbol, NoDigitGroup, NoRound, NoPlusSign)
             : FloatToStr(Stored);
  if (AppendSymbol) AppendMissingSymbol(Text, Measure);
  return Text;
}

/// Scale of a plain number typed for the measure: with feet and fractional inches it counts feet, not inches.
double DecimalScale(int Measure, int ScaleIndex) {
  constexpr double InchesPerFoot = 12;
  const TUnitParserHere Parser(CurrentUnit(Measure));
  RequireParser(Parser, Measure);
  const double Scale = Parser->GetScale(ScaleIndex);
  return Parser->GetUnit()->UnitIdentifyCode == FeetAndFractionalInchCode ? Scale * InchesPerFoot : Scale;
}

/// Anchored, so that a long text costs no more than its length.
const TPerlRegEx& FractionForm() {
  static const TPerlRegEx Expression(
      u"\\A(?:(\\d+\\s*-\\s*\\d+\\s*/\\s*\\d+)|(\\d+\\s*-\\s*\\d+)|(\\d+\\s*/\\s*\\d+))\\z", true);
  return Expression;
}

} // namespace

bool TMeasureDataManager::CheckDisplay(int AMeasure, std::u16string_view AText) {
  const TUnitParserHere Parser(CurrentUnit(AMeasure));
  return Parser && Parser->IsValid(AText);
}

double TMeasureDataManager::DisplayToStore(int AMeasure, std::u16string_view AText, int AScaleIndex) {
  const TUnitParserHere Parser(CurrentUnit(AMeasure));
  return Parser ? Parser->AsDouble(AText, AScaleIndex) : 0.0;
}

std::u16string TMeasureDataManager::StoreToDisplay(bool& AHasSymbol, int AMeasure, double AValue,
                                                   int AScaleIndex, bool AAppendSymbol, bool NoSymbol,
                                                   bool NoDigitGroup, bool NoRound, bool NoPlusSign) {
  if (AMeasure == NoMeasure) return FloatToStr(WithoutResidue(AValue));
  std::u16string Text =
      ShownText(AMeasure, AValue, AScaleIndex, AAppendSymbol, NoSymbol, NoDigitGroup, NoRound, NoPlusSign);
  AHasSymbol = TCommonUnitCommand(AMeasure).HasUnitSymbol();
  return Text;
}

std::u16string TMeasureDataManager::StoreToDisplay(int AMeasure, double AValue, int AScaleIndex,
                                                   bool AAppendSymbol, bool NoSymbol, bool NoDigitGroup,
                                                   bool NoRound, bool NoPlusSign) {
  if (AMeasure != NoMeasure)
    return ShownText(AMeasure, AValue, AScaleIndex, AAppendSymbol, NoSymbol, NoDigitGroup, NoRound,
                     NoPlusSign);
  const double Value = WithoutResidue(AValue);
  const std::u16string Text = FloatToStr(Value);
  const size_t Point = Text.rfind(u'.');
  const bool ManyDecimals = Point != std::u16string::npos && Text.size() - Point > 3;
  return ManyDecimals ? FixedToStr(Value, 5) : Text;
}

std::u16string TMeasureDataManager::ExprToStore(int AMeasure, std::u16string_view AExpr, int,
                                                bool ASkipImperialNum) {
  const bool IsLength = AMeasure == 0 || AMeasure == ElevationMeasure || AMeasure == 7;
  if (!IsLength || (ASkipImperialNum && IsImperialNum(AExpr, false))) return std::u16string(AExpr);
  return ReplaceImperialNumbers(AExpr, 0, 1000 / DecimalScale(AMeasure, BaseScale));
}

std::u16string TMeasureDataManager::GetUnitSymbol(int AMeasure, bool AEmptyForFeetInch) {
  std::u16string Symbol;
  return TCommonUnitCommand(AMeasure).GetUnitSymbol(AEmptyForFeetInch, Symbol);
}

bool TMeasureDataManager::IsANum(int AMeasure, std::u16string_view AText, bool ARejectFractionForm) {
  const TUnitParserHere Parser(CurrentUnit(AMeasure));
  RequireParser(Parser, AMeasure);
  const std::u16string Text = Parser->RemoveSymbol(AText);
  if (!unitlib::IsANum(Text)) return false;
  return !ARejectFractionForm || !FractionForm().Match(TrimView(Text));
}

double TMeasureDataManager::DecimalValueToStore(int AMeasure, double AValue, int AScaleIndex) {
  return AValue * DecimalScale(AMeasure, AScaleIndex);
}

} // namespace unitlib
