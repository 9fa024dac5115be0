/// Volume units; base unit cubic millimetre.
#pragma once

#include "unitlib/convert/ZELUnitCommon.h"

namespace unitlib {

struct TCubicMillimetreParser final : TScaledParser<1> {
  using TScaledParser::TScaledParser;
};
struct TCubicCentimeterParser final : TScaledParser<1000> {
  using TScaledParser::TScaledParser;
};
struct TCubicMeterParser final : TScaledParser<1000000000> {
  using TScaledParser::TScaledParser;
};
struct TCubicInchParser final : TScaledParser<16387064, 3> { // mm3, exact: 25.4 cubed
  using TScaledParser::TScaledParser;
};
struct TCubicFootParser final : TScaledParser<28316846592, 3> { // mm3, exact: 304.8 cubed
  using TScaledParser::TScaledParser;
};
struct TCubicYardParser final : TScaledParser<764554857984, 3> { // mm3, exact: 914.4 cubed
  using TScaledParser::TScaledParser;
};

} // namespace unitlib
