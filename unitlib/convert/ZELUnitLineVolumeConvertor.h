/// Units of volume per length; base unit cubic metre per metre.
#pragma once

#include "unitlib/convert/ZELUnitCommon.h"

namespace unitlib {

struct TCubicMetersPerMeterParser final : TScaledParser<1> {
  using TScaledParser::TScaledParser;
};
struct TCubicFeetPerFootParser final : TScaledParser<9290304, 8> { // m2, exact: 0.3048 squared
  using TScaledParser::TScaledParser;
};
struct TCubicYardsPerFootParser final : TScaledParser<250838208, 8> { // m2, exact: 27 x 0.3048 squared
  using TScaledParser::TScaledParser;
};

} // namespace unitlib
