/// Area units; base unit square millimetre.
#pragma once

#include "unitlib/convert/ZELUnitCommon.h"

namespace unitlib {

struct TSquareMillimeterParser final : TScaledParser<1> {
  using TScaledParser::TScaledParser;
};
struct TSquareCentimetreParser final : TScaledParser<100> {
  using TScaledParser::TScaledParser;
};
struct TSquareMeterParser final : TScaledParser<1000000> {
  using TScaledParser::TScaledParser;
};
struct TSquareInchParser final : TScaledParser<64516, 2> { // mm2, exact: 25.4 squared
  using TScaledParser::TScaledParser;
};
struct TSquareFootParser final : TScaledParser<9290304, 2> { // mm2, exact: 304.8 squared
  using TScaledParser::TScaledParser;
};

} // namespace unitlib
