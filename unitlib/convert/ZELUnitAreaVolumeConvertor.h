/// Units of volume per area; base unit cubic metre per square metre.
#pragma once

#include "unitlib/convert/ZELUnitCommon.h"

namespace unitlib {

struct TCubicMetersPerSquareMetersParser final : TScaledParser<1> {
  using TScaledParser::TScaledParser;
};
struct TCubicFeetPerSquareFeetParser final : TScaledParser<3048, 4> { // m, exact: the foot
  using TScaledParser::TScaledParser;
};
struct TCubicYardsPerSquareFeetParser final : TScaledParser<82296, 4> { // m, exact: 27 feet
  using TScaledParser::TScaledParser;
};

} // namespace unitlib
