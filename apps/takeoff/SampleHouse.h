/// The take-off that opens at the first start.
#pragma once

#include "apps/takeoff/Item.h"

#include <vector>

namespace unitlib::takeoff {

/// A small house of 10 m by 8 m with one storey.
std::vector<TItem> SampleHouse();

} // namespace unitlib::takeoff
