#include "apps/unitctl/Names.h"

#include "apps/common/NearestName.h"
#include "apps/unitctl/Command.h"
#include "apps/unitctl/Session.h"
#include "apps/unitctl/Texts.h"
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
  throw ERefused(Say("names.unknown", What, Numbered(*Nearest)));
}

[[noreturn]] void RefuseText(const std::string& What, std::string_view Typed,
                             const std::vector<TKnownName>& Known) {
  std::vector<std::string> Names;
  Names.reserve(Known.size());
  for (const TKnownName& Name : Known) Names.push_back(ToUtf8(Name.Description));
  throw ERefused(Say("names.unknown", What, Quoted(Names[NearestName(Typed, Names)])));
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
  if (Config.MeasureCount() == 0) throw ERefused(Say("names.no-measures", Quoted(Name.substr(1))));
  throw ERefused(Say("names.position", Quoted(Name.substr(1)), std::to_string(Config.MeasureCount() - 1)));
}

} // namespace

int FindName(const std::string& Kind, std::string_view Name, const std::vector<TKnownName>& Known,
             const std::string& Where) {
  const std::u16string Text = FromTerminal(Name);
  const std::string What = Where.empty() ? Say("names.named", Kind, Quoted(Name))
                                         : Say("names.named-in", Kind, Quoted(Name), Quoted(Where));
  if (Known.empty()) throw ERefused(Say("names.none", What));
  int Number = 0;
  const bool IsNumber = TryStrToInt(Text, Number);
  // A description may be a number itself, so it is looked for even then.
  if (const int Found = IsNumber ? FindByNumber(Number, Known) : -1; Found >= 0) return Found;
  if (const int Found = FindByText(Text, Known); Found >= 0) return Found;
  if (!IsNumber) RefuseText(What, Name, Known);
  const std::string Typed = std::to_string(Number);
  RefuseNumber(Where.empty() ? Say("names.numbered", Kind, Typed)
                             : Say("names.numbered-in", Kind, Typed, Quoted(Where)),
               Number, Known);
}

int FindSystem(std::string_view Name) {
  return FindName(Say("kind.system"), Name, ByPosition(TSystemUnitDataManager::CurUseUnitConfigContainer()));
}

int FindDigitGroup(std::string_view Name) {
  std::vector<TKnownName> Known;
  Known.reserve(static_cast<std::size_t>(TSystemUnitDataManager::DigitGroupCount()));
  for (int I = 0; I < TSystemUnitDataManager::DigitGroupCount(); ++I)
    Known.push_back({I, TSystemUnitDataManager::DigitGroup(I)->Description});
  return FindName(Say("kind.group"), Name, Known);
}

TMeasure& FindMeasure(const TConfig& Config, std::string_view Name) {
  if (Name.starts_with('#')) return MeasureAtPosition(Config, Name);
  return *Config.Measure(FindName(Say("kind.measure"), Name, MeasureNames(Config)), false);
}

int FindUnit(const TMeasure& Measure, std::string_view Name) {
  std::vector<TKnownName> Known;
  for (const auto& Unit : Measure.UnitContainer) Known.push_back({Unit->UnitIdentifyCode, Unit->Description});
  return FindName(Say("kind.unit"), Name, Known, ToUtf8(Measure.Description));
}

int FindRound(const TUnit& Unit, std::string_view Name) {
  return FindName(Say("kind.rounding"), Name, ByPosition(Unit.RoundContainer), ToUtf8(Unit.Description));
}

int FindSymbol(const TUnit& Unit, std::string_view Name) {
  return FindName(Say("kind.symbol"), Name, ByPosition(Unit.UnitSymbolContainer), ToUtf8(Unit.Description));
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
  return Switches()[static_cast<std::size_t>(FindName(Say("kind.switch"), Name, Known))];
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
    throw ERefused(
        Say("names.hidden", Name, std::to_string(Measure.ClassifyCode), Quoted(Reached->Description)));
  TUnit* Unit = Measure.UnitContainer.Find(Measure.CurUnitIndex);
  if (!Unit) throw ERefused(Say("names.no-unit", Name));
  if (!GetUnitParser(Unit->UnitParserClassName, Unit))
    throw ERefused(
        Say("names.no-parser", Quoted(Unit->Description), Name, Quoted(Unit->UnitParserClassName)));
}

} // namespace unitlib::app
