#include "apps/unitctl/Names.h"

#include "apps/common/NearestName.h"
#include "apps/unitctl/Command.h"
#include "apps/unitctl/Session.h"
#include "unitlib/convert/ZELUnitCommon.h"
#include "unitlib/convert/ZELUnitParseRegister.h"
#include "unitlib/rtl/Numbers.h"
#include "unitlib/rtl/Text.h"

#include <cstdint>
#include <cstdlib>

namespace unitlib::app {
namespace {

template <class T> std::vector<TKnownName> ByPosition(const TOwningList<T>& List) {
  std::vector<TKnownName> Result;
  for (const auto& Item : List) Result.push_back({static_cast<int>(Result.size()), Item->Description});
  return Result;
}

std::string Numbered(const TKnownName& Known) {
  return std::to_string(Known.Number) + ", " + Quoted(Known.Description);
}

[[noreturn]] void RefuseNumber(const std::string& What, int Number, const std::vector<TKnownName>& Known) {
  const TKnownName* Nearest = &Known.front();
  const auto Distance = [Number](const TKnownName& Name) {
    return std::abs(std::int64_t{Name.Number} - Number);
  };
  for (const TKnownName& Name : Known)
    if (Distance(Name) < Distance(*Nearest)) Nearest = &Name;
  throw ERefused("no " + What + "; the nearest is " + Numbered(*Nearest));
}

[[noreturn]] void RefuseText(const std::string& What, std::string_view Typed,
                             const std::vector<TKnownName>& Known) {
  std::vector<std::string> Names;
  for (const TKnownName& Name : Known) Names.push_back(ToUtf8(Name.Description));
  throw ERefused("no " + What + "; the nearest is " + Quoted(Names[NearestName(Typed, Names)]));
}

int FindByNumber(int Number, const std::vector<TKnownName>& Known) {
  for (std::size_t I = 0; I < Known.size(); ++I)
    if (Known[I].Number == Number) return static_cast<int>(I);
  return -1;
}

int FindByText(std::u16string_view Text, const std::vector<TKnownName>& Known) {
  for (std::size_t I = 0; I < Known.size(); ++I)
    if (Known[I].Description == Text) return static_cast<int>(I);
  for (std::size_t I = 0; I < Known.size(); ++I)
    if (SameText(Known[I].Description, Text)) return static_cast<int>(I);
  return -1;
}

std::vector<TKnownName> MeasureNames(const TConfig& Config) {
  std::vector<TKnownName> Result;
  for (const auto& Measure : Config.MeasureContainer)
    Result.push_back({Measure->ClassifyCode, Measure->Description});
  return Result;
}

TMeasure& MeasureAtPosition(const TConfig& Config, std::string_view Name) {
  int Position = 0;
  if (TryStrToInt(FromTerminal(Name.substr(1)), Position))
    if (TMeasure* Found = Config.MeasureContainer.Find(Position)) return *Found;
  throw ERefused("no measure at position " + Quoted(Name.substr(1)) + "; the positions are 0 to " +
                 std::to_string(Config.MeasureCount() - 1));
}

} // namespace

int FindName(const std::string& Kind, std::string_view Name, const std::vector<TKnownName>& Known,
             const std::string& Where) {
  const std::u16string Text = FromTerminal(Name);
  const std::string Place = Where.empty() ? "" : " in " + Quoted(Where);
  if (Known.empty())
    throw ERefused("no " + Kind + " " + Quoted(Name) + Place + "; there is none to choose from");
  int Number = 0;
  const bool IsNumber = TryStrToInt(Text, Number);
  // A description may be a number itself, so it is looked for even then.
  if (const int Found = IsNumber ? FindByNumber(Number, Known) : -1; Found >= 0) return Found;
  if (const int Found = FindByText(Text, Known); Found >= 0) return Found;
  if (IsNumber) RefuseNumber(Kind + " with the number " + std::to_string(Number) + Place, Number, Known);
  RefuseText(Kind + " " + Quoted(Name) + Place, Name, Known);
}

int FindSystem(std::string_view Name) {
  return FindName("unit system", Name, ByPosition(TSystemUnitDataManager::CurUseUnitConfigContainer()));
}

int FindDigitGroup(std::string_view Name) {
  std::vector<TKnownName> Known;
  for (int I = 0; I < TSystemUnitDataManager::DigitGroupCount(); ++I)
    Known.push_back({I, TSystemUnitDataManager::DigitGroup(I)->Description});
  return FindName("digit grouping", Name, Known);
}

TMeasure& FindMeasure(const TConfig& Config, std::string_view Name) {
  if (Name.starts_with('#')) return MeasureAtPosition(Config, Name);
  return *Config.Measure(FindName("measure", Name, MeasureNames(Config)), false);
}

int FindUnit(const TMeasure& Measure, std::string_view Name) {
  std::vector<TKnownName> Known;
  for (const auto& Unit : Measure.UnitContainer) Known.push_back({Unit->UnitIdentifyCode, Unit->Description});
  return FindName("unit", Name, Known, ToUtf8(Measure.Description));
}

int FindRound(const TUnit& Unit, std::string_view Name) {
  return FindName("rounding", Name, ByPosition(Unit.RoundContainer), ToUtf8(Unit.Description));
}

int FindSymbol(const TUnit& Unit, std::string_view Name) {
  return FindName("symbol", Name, ByPosition(Unit.UnitSymbolContainer), ToUtf8(Unit.Description));
}

const std::vector<TSwitch>& Switches() {
  static const std::vector<TSwitch> All = {
      {"UseProjectSetting", &TUnit::UseProjectSetting},
      {"SuppressTrail0", &TUnit::SuppressTrail0},
      {"Suppress0Feet", &TUnit::Suppress0Feet},
      {"ShowPlusSymbolForPosValue", &TUnit::ShowPlusForPosValue},
      {"UseDigitGroup", &TUnit::UseDigitGroup},
      {"SuppressSpace", &TUnit::SuppressSpace},
  };
  return All;
}

const TSwitch& FindSwitch(std::string_view Name) {
  std::vector<TKnownName> Known;
  for (const TSwitch& Switch : Switches())
    Known.push_back({static_cast<int>(Known.size()), FromUtf8(Switch.Name)});
  return Switches()[static_cast<std::size_t>(FindName("format switch", Name, Known))];
}

TMeasure& FindConvertible(std::string_view Name) {
  TMeasure& Measure = FindMeasure(TSession::System(), Name);
  RequireConvertible(Measure);
  return Measure;
}

void RequireConvertible(TMeasure& Measure) {
  const TMeasure* Reached = TSystemUnitDataManager::CurConfigMeasure(Measure.ClassifyCode);
  const std::string Name = Quoted(Measure.Description);
  if (Reached != &Measure)
    throw ERefused("measure " + Name + " cannot be converted: its classify code " +
                   std::to_string(Measure.ClassifyCode) + " belongs to " + Quoted(Reached->Description) +
                   ", which comes first");
  TUnit* Unit = Measure.UnitContainer.Find(Measure.CurUnitIndex);
  if (!Unit)
    throw ERefused("measure " + Name + " has no unit yet: choose one with  unitctl set MEASURE --unit UNIT");
  if (!GetUnitParser(Unit->UnitParserClassName, Unit))
    throw ERefused("unit " + Quoted(Unit->Description) + " of " + Name + " names the parser class " +
                   Quoted(Unit->UnitParserClassName) + ", which does not exist");
}

} // namespace unitlib::app
