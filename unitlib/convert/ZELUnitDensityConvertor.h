/// Mass density units; base unit kilogram per cubic metre.
#pragma once

#include "unitlib/convert/ZELUnitCommon.h"

namespace unitlib {

struct TKiogramsPerCubicMeterParser final : TScaledParser<1> { // sic
  using TScaledParser::TScaledParser;
};
struct TPoundPerCubicFootParser final : TScaledParser<1601846337396, 11> { // kg/m3, to 11 decimals
  using TScaledParser::TScaledParser;
};
struct TPoundPerCubicYardParser final : TScaledParser<593276421257783, 15> { // kg/m3, to 15 digits
  using TScaledParser::TScaledParser;
};

} // namespace unitlib
