/// Mass units; base unit kilogram.
#pragma once

#include "unitlib/convert/ZELUnitCommon.h"

namespace unitlib {

struct TKilogramsParser final : TScaledParser<1> {
  using TScaledParser::TScaledParser;
};
struct TTonParser final : TScaledParser<1000> {
  using TScaledParser::TScaledParser;
};
struct TLongTonParser final : TScaledParser<1016> { // kg, whole on purpose (not 1016.0469088)
  using TScaledParser::TScaledParser;
};
struct TShortTonParser final : TScaledParser<907> { // kg, whole on purpose (not 907.18474)
  using TScaledParser::TScaledParser;
};
struct TBangParser final : TScaledParser<45359237, 8> { // sic: pound; kg, exact: international pound, 1959
  using TScaledParser::TScaledParser;
};

} // namespace unitlib
