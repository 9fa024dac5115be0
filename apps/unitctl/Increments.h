/// What may stand as the increment of a rounding.
#pragma once

#include "unitlib/model/UnitModel.h"

#include <string_view>

namespace unitlib::app {

/// True for the two units that are shown in fractions of an inch.
bool IsFractional(const TUnit& Unit) noexcept;
/// A number above 0, with Fractions also a fraction of two such numbers.
bool IsIncrement(std::u16string_view Text, bool Fractions);

} // namespace unitlib::app
