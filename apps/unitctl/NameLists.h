/// Lists of names as the commands take them, for people and for completion.
#pragma once

#include "unitlib/model/UnitModel.h"

#include <string>
#include <string_view>
#include <vector>

namespace unitlib::app {

struct TNameList {
  std::string_view Kind; // "measures"
  bool OfMeasure;        // a measure has to be named
  std::vector<std::string> (*Names)(const TMeasure* Measure);
};

/// All there are, in the order of help.
const std::vector<TNameList>& NameLists();

} // namespace unitlib::app
