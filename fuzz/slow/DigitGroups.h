/// Digit grouping, literally.
#pragma once

#include <string>
#include <string_view>

namespace unitlib::fuzz::slow {

/// Size    digits of a group; 0: none
std::u16string GroupDigits(std::u16string_view Text, int Size);

} // namespace unitlib::fuzz::slow
