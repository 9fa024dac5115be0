/// The settings of one case, put into the data manager as a set of one configuration.
#pragma once

#include "unitlib/model/UnitModel.h"

#include <string_view>

namespace unitlib::differential {

/// Makes a set whose only measure has this classify code and the unit of the case; freed with the object.
class TUnitSetup {
public:
  /// Field       class | code | round (0 none, 1, 3 editable) | increment | symbols | symbol index | six
  /// switches |
  ///             text for "None" | digit-group class (? for none current)
  TUnitSetup(std::string_view Field, int ClassifyCode);
  ~TUnitSetup();
  TUnitSetup(const TUnitSetup&) = delete;
  TUnitSetup& operator=(const TUnitSetup&) = delete;

  TUnit& Unit() noexcept { return *FUnit; }

private:
  TUnit* FUnit = nullptr;
};

} // namespace unitlib::differential
