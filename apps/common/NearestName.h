/// The known name that a mistyped one most likely means.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace unitlib::app {

/// Position of the known name nearest to Typed (letters A to Z folded): the one that begins with Typed, or
/// else holds it, with the fewest letters changed, added or left out; among equals the one nearest as a
/// whole. Known must not be empty.
///   NearestName("lenght", {"Area", "Length (Basic Information)"}) == 1
std::size_t NearestName(std::string_view Typed, const std::vector<std::string>& Known);

} // namespace unitlib::app
