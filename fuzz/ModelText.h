/// The loaded settings as one text that holds every field: two sets are equal when their texts are.
#pragma once

#include <string>

namespace unitlib::fuzz {

/// Saved: as they are once they have been saved, configurations, measures and digit groups numbered by
/// position.
std::string ModelText(bool Saved);

} // namespace unitlib::fuzz
