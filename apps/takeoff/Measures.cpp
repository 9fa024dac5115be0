#include "apps/takeoff/Measures.h"

#include "apps/takeoff/Errors.h"
#include "unitlib/convert/ZELUnitCommon.h"
#include "unitlib/convert/ZELUnitParseRegister.h"
#include "unitlib/model/ZELUnitMgr.h"
#include "unitlib/rtl/Numbers.h"
#include "unitlib/rtl/Text.h"

#include <algorithm>

namespace unitlib::takeoff {
namespace {

/// The current configuration; null while none is loaded or chosen.
TConfig* CurrentSystem() {
  try {
    return TSystemUnitDataManager::CurConfig();
  } catch (const EListError&) {
    return nullptr;
  }
}

TMeasure* FindByCode(int Code) {
  return CurrentSystem() ? TSystemUnitDataManager::CurConfigMeasure(Code) : nullptr;
}

TUnit* CurrentUnit(const TMeasure* Measure) {
  return Measure ? Measure->UnitContainer.Find(Measure->CurUnitIndex) : nullptr;
}

void MakeNamesUnique(std::vector<TMeasureChoice>& Choices) {
  for (std::size_t I = 0; I < Choices.size(); ++I) {
    const std::u16string Name = Choices[I].Name;
    const auto Alike = [&](const TMeasureChoice& Choice) { return Choice.Name == Name; };
    if (std::count_if(Choices.begin(), Choices.end(), Alike) < 2) continue;
    for (TMeasureChoice& Choice : Choices)
      if (Alike(Choice)) Choice.Name += u" [" + IntToStr(Choice.Code) + u"]";
  }
}

} // namespace

std::vector<TMeasureChoice> UsableMeasures() {
  std::vector<TMeasureChoice> Choices;
  const TConfig* const System = CurrentSystem();
  if (!System) return Choices;
  for (const auto& Measure : System->MeasureContainer)
    if (FindByCode(Measure->ClassifyCode) == Measure.get() && MeasureProblem(Measure->ClassifyCode).empty())
      Choices.push_back({Measure->ClassifyCode, Measure->Description});
  MakeNamesUnique(Choices);
  return Choices;
}

std::u16string MeasureProblem(int Code) {
  if (!CurrentSystem()) return u"no unit settings are loaded";
  TMeasure* const Measure = FindByCode(Code);
  if (!Measure) return u"measure " + IntToStr(Code) + u" is not in the unit settings";
  TUnit* const Unit = CurrentUnit(Measure);
  if (!Unit) return u"no unit is chosen for \"" + Measure->Description + u"\"";
  if (!GetUnitParser(Unit->UnitParserClassName, Unit))
    return u"unit \"" + Unit->Description + u"\" names an unknown class \"" + Unit->UnitParserClassName +
           u"\"";
  return {};
}

std::u16string MeasureName(int Code) {
  for (const TMeasureChoice& Choice : UsableMeasures())
    if (Choice.Code == Code) return Choice.Name;
  const TMeasure* const Measure = FindByCode(Code);
  return Measure ? Measure->Description : u"measure " + IntToStr(Code);
}

std::u16string CurrentUnitName(int Code) {
  const TUnit* const Unit = CurrentUnit(FindByCode(Code));
  return Unit ? Unit->Description : std::u16string();
}

int FindMeasure(std::u16string_view Text) {
  const std::u16string_view Wanted = TrimView(Text);
  int Code = 0;
  const bool IsCode = TryStrToInt(Wanted, Code);
  for (const TMeasureChoice& Choice : UsableMeasures())
    if (IsCode ? Choice.Code == Code : SameText(Choice.Name, Wanted)) return Choice.Code;
  if (IsCode) throw ERefused(MeasureProblem(Code), Text);
  throw ERefused(u"\"" + std::u16string(Wanted) + u"\" is not a measure of the unit settings", Text);
}

bool IsLength(int Code) noexcept {
  constexpr int BasicLength = 0;
  constexpr int ResultLength = 7;
  return Code == BasicLength || Code == ElevationMeasure || Code == ResultLength;
}

bool SameBaseUnit(int CodeA, int CodeB) noexcept {
  return CodeA == CodeB || (IsLength(CodeA) && IsLength(CodeB));
}

} // namespace unitlib::takeoff
