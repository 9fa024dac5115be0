#include "apps/unitctl/Increments.h"

#include "unitlib/model/ZELUnitConst.h"
#include "unitlib/rtl/Numbers.h"

namespace unitlib::app {

bool IsFractional(const TUnit& Unit) noexcept {
  return Unit.UnitIdentifyCode == FeetAndFractionalInchCode || Unit.UnitIdentifyCode == FractionalInchCode;
}

bool IsIncrement(std::u16string_view Text, bool Fractions) {
  const std::size_t Bar = Fractions ? Text.find(u'/') : Text.npos;
  if (Bar != Text.npos)
    return IsIncrement(Text.substr(0, Bar), false) && IsIncrement(Text.substr(Bar + 1), false);
  double Value = 0;
  return TryStrToFloat(Text, Value) && Value > 0;
}

} // namespace unitlib::app
