#include "apps/unitctl/NameLists.h"

#include "apps/unitctl/Names.h"
#include "apps/unitctl/Session.h"
#include "unitlib/rtl/Text.h"

namespace unitlib::app {
namespace {

using TManager = TSystemUnitDataManager;

template <class T> std::vector<std::string> Descriptions(const TOwningList<T>& List) {
  std::vector<std::string> Result;
  for (const auto& Item : List) Result.push_back(ToUtf8(Item->Description));
  return Result;
}

const TUnit* CurrentUnit(const TMeasure& Measure) {
  return Measure.UnitContainer.Find(Measure.CurUnitIndex);
}

std::vector<std::string> Systems(const TMeasure*) {
  return Descriptions(TManager::CurUseUnitConfigContainer());
}

std::vector<std::string> Groups(const TMeasure*) {
  std::vector<std::string> Result;
  Result.reserve(static_cast<std::size_t>(TManager::DigitGroupCount()));
  for (int I = 0; I < TManager::DigitGroupCount(); ++I)
    Result.push_back(ToUtf8(TManager::DigitGroup(I)->Description));
  return Result;
}

std::vector<std::string> SwitchNames(const TMeasure*) {
  std::vector<std::string> Result;
  for (const TSwitch& Switch : Switches()) Result.emplace_back(Switch.Name);
  return Result;
}

std::vector<std::string> MeasureList(const TMeasure*) {
  return Descriptions(TSession::System().MeasureContainer);
}

std::vector<std::string> Units(const TMeasure* Measure) {
  return Descriptions(Measure->UnitContainer);
}

std::vector<std::string> Roundings(const TMeasure* Measure) {
  const TUnit* Unit = CurrentUnit(*Measure);
  return Unit ? Descriptions(Unit->RoundContainer) : std::vector<std::string>();
}

std::vector<std::string> Symbols(const TMeasure* Measure) {
  const TUnit* Unit = CurrentUnit(*Measure);
  return Unit ? Descriptions(Unit->UnitSymbolContainer) : std::vector<std::string>();
}

} // namespace

const std::vector<TNameList>& NameLists() {
  static const std::vector<TNameList> All = {
      {"systems", false, &Systems},      {"groups", false, &Groups}, {"switches", false, &SwitchNames},
      {"measures", false, &MeasureList}, {"units", true, &Units},    {"roundings", true, &Roundings},
      {"symbols", true, &Symbols},
  };
  return All;
}

} // namespace unitlib::app
