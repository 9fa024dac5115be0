#include "apps/unitctl/FindingList.h"

#include "apps/common/Utf8.h"
#include "unitlib/rtl/Text.h"

namespace unitlib::app {

TFindingList::TScope::TScope(TFindingList& List, std::u16string_view Name) : FList(List) {
  FList.FPlace.push_back(Printable(ToUtf8(Name)));
}

void TFindingList::Add(std::string_view Kind, int Line, std::string Problem, std::string Advice,
                       bool Repaired) {
  std::string Place;
  for (const std::string& Part : FPlace) Place += (Place.empty() ? "" : " / ") + Part;
  FFindings.push_back({Kind, Line, std::move(Place), std::move(Problem), std::move(Advice), Repaired});
}

} // namespace unitlib::app
