#include "apps/takeoff/ValueField.h"

#include "apps/takeoff/Arithmetic.h"
#include "apps/takeoff/Errors.h"
#include "apps/takeoff/Measures.h"
#include "unitlib/convert/ZELUnitCommon.h"
#include "unitlib/convert/ZELUnitConvertor.h"
#include "unitlib/expr/ZELUnitArthProcessor.h"
#include "unitlib/model/ZELUnitConst.h"
#include "unitlib/rtl/Numbers.h"
#include "unitlib/rtl/Text.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace unitlib::takeoff {
namespace {

std::u16string Quoted(std::u16string_view Text) {
  return u"\"" + std::u16string(Text) + u"\"";
}

int CurrentUnitCode(int Measure) {
  const auto Parser = TCommonUnitCommand(Measure).GetParser();
  return Parser ? Parser->GetUnit()->UnitIdentifyCode : 0;
}

bool IsFractionalUnit(int Code) {
  return Code == FeetAndFractionalInchCode || Code == FractionalInchCode;
}

/// In a metric project a plain number beside feet and inches is one of the current unit; in an imperial one
/// it could be feet as well as inches.
TArithmeticRules RulesFor(int Measure) {
  TArithmeticRules Rules;
  Rules.Lengths = IsLength(Measure);
  if (Rules.Lengths && IsMetricLengthCode(CurrentUnitCode(Measure)))
    Rules.PlainInMm = TMeasureDataManager::DecimalValueToStore(Measure, 1, BaseScale);
  return Rules;
}

/// Rounding in the last place of a double aside.
bool SameAmount(double A, double B) {
  constexpr double Relative = 1e-12;
  return std::abs(A - B) <= Relative * std::max(std::abs(A), std::abs(B));
}

/// Texts that no reading should be tried on.
void RequireClear(std::u16string_view Text, bool Lengths) {
  if (Text.size() > MaxTypedLength)
    throw ERefused(u"the text is longer than " + IntToStr(MaxTypedLength) + u" characters", Text);
  if (HasMisplacedComma(Text))
    throw ERefused(Quoted(Text) + u": a comma separates thousands; the decimal mark is a point", Text);
  if (Lengths && HasAmbiguousDash(Text))
    throw ERefused(Quoted(Text) +
                       u" may mean a sum or a difference: write 5'6\" without a dash for the sum, and blanks "
                       u"around it (5' - 6\") for the difference",
                   Text);
}

/// What is wrong, with the text that it is about.
[[noreturn]] void Refuse(std::u16string_view Text, const std::u16string& Problem) {
  const std::u16string Start = Quoted(Text);
  throw ERefused(Problem.starts_with(Start) ? Problem : Start + u": " + Problem, Text);
}

} // namespace

std::u16string TValueField::Display(double Value) const {
  const std::u16string Problem = MeasureProblem(FMeasure);
  if (!Problem.empty()) return u"(" + Problem + u")";
  if (!std::isfinite(Value)) return u"(no number in the project file)";
  try {
    // The unit's symbol always stands behind the number: one without it could be anything.
    return TMeasureDataManager::StoreToDisplay(FMeasure, Value, BaseScale, true);
  } catch (const EUnitError& Error) {
    return u"(" + Error.Message() + u")";
  }
}

bool TValueField::CanDisplay(double Value) const {
  if (!std::isfinite(Value) || !MeasureProblem(FMeasure).empty()) return false;
  try {
    TMeasureDataManager::StoreToDisplay(FMeasure, Value, BaseScale, true);
    return true;
  } catch (const EUnitError&) {
    return false;
  }
}

std::u16string TValueField::TypedText(const TItem& Item) {
  if (Item.Typed.empty() || Item.TypedIn.empty() || Item.TypedIn == CurrentUnitName(Item.Measure))
    return Item.Typed;
  return Item.Typed + u"  (" + Item.TypedIn + u")";
}

std::u16string TValueField::EditText(const TItem& Item) const {
  if (!CanDisplay(Item.Value)) return {};
  if (!Item.Typed.empty()) {
    try {
      if (Read(Item.Typed) == Item.Value) return Item.Typed;
    } catch (const EUnitError&) {
      // Typed in other units, in which it meant something.
    }
  }
  // Fractional inches need their mark to be read back as they are, in a sum too.
  const bool NoSymbol = CurrentUnitCode(FMeasure) != FractionalInchCode;
  return TMeasureDataManager::StoreToDisplay(FMeasure, Item.Value, BaseScale, false, NoSymbol, true, true,
                                             true);
}

double TValueField::Read(std::u16string_view Typed) const {
  const std::u16string Text = WithoutBlanksAtBrackets(TrimView(Typed));
  if (Text.empty()) throw ERefused(u"an item needs a value; delete the item if it has none");
  if (const std::u16string Problem = MeasureProblem(FMeasure); !Problem.empty()) Refuse(Text, Problem);
  RequireClear(Text, IsLength(FMeasure));

  std::optional<double> Whole;
  if (TMeasureDataManager::CheckDisplay(FMeasure, Text))
    Whole = TMeasureDataManager::DisplayToStore(FMeasure, Text, BaseScale);
  std::optional<double> Computed;
  try {
    Computed = ReadArithmetic(Text);
  } catch (const EUnitError& Error) {
    if (!Whole) Refuse(Text, Error.Message());
  }
  if (Whole && Computed && !SameAmount(*Whole, *Computed))
    Refuse(Text, u"this may be " + Display(*Whole) + u" or, calculated, " + Display(*Computed) +
                     u"; write it with foot and inch marks, or in brackets to calculate");
  const double Value = Whole ? *Whole : *Computed;
  RequireDisplayable(Value, Text);
  return Value;
}

double TValueField::ReadArithmetic(std::u16string_view Text) const {
  const TAmount Amount = Evaluate(Text, RulesFor(FMeasure));
  return Amount.IsLength ? Amount.Value : ReadPlain(Amount.Value);
}

/// A plain result is what the cell would make of the same number typed by hand.
double TValueField::ReadPlain(double Number) const {
  const std::u16string Text = FloatToStr(Number);
  if (TMeasureDataManager::CheckDisplay(FMeasure, Text))
    return TMeasureDataManager::DisplayToStore(FMeasure, Text, BaseScale);
  if (IsFractionalUnit(CurrentUnitCode(FMeasure)) && Number != std::trunc(Number))
    throw ERefused(Text + u" needs a mark here: " + Text + u"' or " + Text + u"\"", Text);
  throw ERefused(Text + u" is outside the range of values", Text);
}

void TValueField::RequireDisplayable(double Value, std::u16string_view Text) const {
  if (!CanDisplay(Value)) Refuse(Text, u"this value cannot be shown: " + Display(Value));
}

namespace {

/// A name starts with a letter; marks, brackets and other signs in it were meant to be something else.
bool IsName(std::u16string_view Name) {
  constexpr std::u16string_view Signs = u" _.#:";
  const auto IsLetter = [](char16_t C) {
    return (UpperAscii(C) >= u'A' && UpperAscii(C) <= u'Z') || C == u'_' || C >= 0x80;
  };
  const auto MayStand = [&](char16_t C) { return IsLetter(C) || IsDigit(C) || Signs.find(C) != Signs.npos; };
  return !Name.empty() && IsLetter(Name.front()) && std::all_of(Name.begin(), Name.end(), MayStand);
}

/// Feet times feet, or a number divided by an elevation, would pass the engine as something else.
void RequireLength(std::u16string_view Text) {
  TArithmeticRules Rules;
  Rules.Lengths = true;
  Rules.Names = true;
  Rules.PlainInMm = 1; // a plain number counts the current unit; which one does not matter here
  Evaluate(Text, Rules);
}

/// Feet and inches in a metric project become numbers of the current unit; the engine reads them by itself in
/// others.
std::u16string ForEngine(std::u16string_view Text) {
  const bool IsMetric = IsMetricLengthCode(CurrentUnitCode(ElevationMeasure));
  return IsMetric ? TMeasureDataManager::ExprToStore(ElevationMeasure, Text) : std::u16string(Text);
}

std::u16string EngineProblem(std::u16string_view Text) {
  TParser Parser(Text);
  auto Root = Parser.Parse();
  if (!Parser.FHasError && Root) Parser.Merge(Root);
  return Parser.FErrMsg.empty() ? u"an elevation is a length, or one name with an offset such as L1+5'6\""
                                : Parser.FErrMsg;
}

std::u16string ReadNamed(std::u16string_view Text) {
  RequireLength(Text);
  const std::u16string Expression = ForEngine(Text);
  for (const std::u16string& Name : NamesIn(Expression))
    if (!IsName(Name)) Refuse(Text, Quoted(Name) + u" is neither a length with its mark nor a name");
  if (!CheckElevEditValue(Expression)) Refuse(Text, EngineProblem(Expression));
  return GetElevStoreValue(Expression);
}

bool HasName(std::u16string_view Text) {
  try {
    const std::vector<std::u16string> Names = NamesIn(Text);
    return std::any_of(Names.begin(), Names.end(), IsName);
  } catch (const ERefused&) {
    return false; // then it is refused as a length, with the reason
  }
}

} // namespace

std::u16string TElevationField::Display(std::u16string_view Stored) {
  try {
    return GetElevDisplayValue(Stored);
  } catch (const EUnitError& Error) {
    return u"(" + Error.Message() + u")";
  }
}

std::u16string TElevationField::EditText(std::u16string_view Stored) {
  try {
    return GetElevEditValue(Stored);
  } catch (const EUnitError&) {
    return {};
  }
}

std::u16string TElevationField::UnitSuffix() {
  if (!MeasureProblem(ElevationMeasure).empty() || IsFractionalUnit(CurrentUnitCode(ElevationMeasure)))
    return {};
  const std::u16string Symbol = TMeasureDataManager::GetUnitSymbol(ElevationMeasure, true);
  return Symbol.empty() ? Symbol : u" [" + Symbol + u"]";
}

std::u16string TElevationField::Read(std::u16string_view Typed) {
  constexpr double MmPerMetre = 1000;
  const std::u16string Text = WithoutBlanksAtBrackets(TrimView(Typed));
  if (Text.empty()) return {};
  if (const std::u16string Problem = MeasureProblem(ElevationMeasure); !Problem.empty())
    Refuse(Text, Problem);
  RequireClear(Text, true);
  try {
    if (HasName(Text)) return ReadNamed(Text);
  } catch (const ERefused& Error) {
    Refuse(Text, Error.Message());
  }
  // Never with an exponent, whose sign the engine would take for a subtraction when it reads the stored form.
  return FloatToPlainStr(TValueField(ElevationMeasure).Read(Text) / MmPerMetre);
}

} // namespace unitlib::takeoff
