/// A unit with all its settings, taken from an input and put into the data manager.
#pragma once

#include "fuzz/Input.h"
#include "fuzz/slow/Units.h"

namespace unitlib {
class TUnit;
}

namespace unitlib::fuzz {

/// Takes the settings of a unit whose class is chosen already.
void TakeUnitSettings(TInput& Input, slow::TUnitSetup& Setup);

/// Makes a set of one configuration with one measure, whose current unit has these settings; freed with the
/// object.
class TLoadedUnit {
public:
  TLoadedUnit(const slow::TUnitSetup& Setup, int ClassifyCode);
  ~TLoadedUnit();
  TLoadedUnit(const TLoadedUnit&) = delete;
  TLoadedUnit& operator=(const TLoadedUnit&) = delete;

  TUnit& Unit() noexcept { return *FUnit; }

private:
  TUnit* FUnit;
};

} // namespace unitlib::fuzz
