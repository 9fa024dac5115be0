#include "apps/takeoff/ValueField.h"

#include "apps/takeoff/Errors.h"
#include "apps/takeoff/Measures.h"
#include "unitlib/convert/ZELUnitCommon.h"
#include "unitlib/convert/ZELUnitConvertor.h"
#include "unitlib/expr/ZELUnitArthProcessor.h"
#include "unitlib/model/ZELUnitConst.h"
#include "unitlib/rtl/Numbers.h"
#include "unitlib/rtl/Text.h"
#include "unitlib/typing/ReadTyped.h"

#include <cmath>
#include <utility>

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

/// What is wrong, with the text that it is about.
[[noreturn]] void Refuse(std::u16string_view Text, const std::u16string& Problem) {
  const std::u16string Start = Quoted(Text);
  throw ERefused(Problem.starts_with(Start) ? Problem : Start + u": " + Problem, Text);
}

/// Why a text was refused, and what to type instead.
std::u16string WhyRefused(const TTypedReading& Reading) {
  std::u16string Problem = Reading.Reason;
  const char16_t* Before = u"; write ";
  for (const std::u16string& Suggestion : Reading.Suggestions)
    Problem += std::exchange(Before, u" or ") + Suggestion;
  return Problem;
}

/// Cells take arithmetic, so a dash may take away in all of them.
TTypedReading ReadCell(int Measure, std::u16string_view Text) {
  TTypedOptions Options;
  Options.Kind = TTypedKind::Expression;
  return ReadTyped(Measure, Text, Options);
}

TTypedReading RequireRead(int Measure, std::u16string_view Text) {
  if (const std::u16string Problem = MeasureProblem(Measure); !Problem.empty()) Refuse(Text, Problem);
  TTypedReading Reading = ReadCell(Measure, Text);
  if (!Reading.Accepted) Refuse(Text, WhyRefused(Reading));
  return Reading;
}

/// How a text would be read, for the bar that tells it while it is typed; empty for an empty one.
std::u16string Hint(int Measure, std::u16string_view Text) {
  if (TrimView(Text).empty() || !MeasureProblem(Measure).empty()) return {};
  const TTypedReading Reading = ReadCell(Measure, TrimView(Text));
  if (!Reading.Accepted) return u"Not clear: " + WhyRefused(Reading);
  return u"Read as " + Reading.Understood;
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
  const std::u16string_view Text = TrimView(Typed);
  if (Text.empty()) throw ERefused(u"an item needs a value; delete the item if it has none");
  const TTypedReading Reading = RequireRead(FMeasure, Text);
  if (!Reading.HasValue) Refuse(Text, u"a name has no value of its own; an elevation may hold one");
  if (!CanDisplay(Reading.StoreValue))
    Refuse(Text, u"this value cannot be shown: " + Display(Reading.StoreValue));
  return Reading.StoreValue;
}

std::u16string TValueField::Hint(std::u16string_view Text) const {
  return takeoff::Hint(FMeasure, Text);
}

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
  const std::u16string_view Text = TrimView(Typed);
  if (Text.empty()) return {};
  const TTypedReading Reading = RequireRead(ElevationMeasure, Text);
  if (!Reading.HasValue) return GetElevStoreValue(Reading.Rewritten);
  // Never with an exponent, whose sign the engine would take for a subtraction when it reads the stored form.
  return FloatToPlainStr(Reading.StoreValue / MmPerMetre);
}

std::u16string TElevationField::Hint(std::u16string_view Text) {
  return takeoff::Hint(ElevationMeasure, Text);
}

} // namespace unitlib::takeoff
