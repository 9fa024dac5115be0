/// Units of mass per length (the theoretical weight of bars); base unit kilogram per metre.
#pragma once

#include "unitlib/convert/ZELUnitCommon.h"

namespace unitlib {

struct TKilogramsPerMeterParser final : TScaledParser<1> {
  using TScaledParser::TScaledParser;
};
struct TPoundPerFootParser final
    : TScaledParser<14881639461, 10> { // kg/m, kept as written: the exact factor differs in the tenth digit
  using TScaledParser::TScaledParser;
};

} // namespace unitlib
