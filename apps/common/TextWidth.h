/// How many columns a text takes on a terminal.
#pragma once

#include <cstddef>
#include <string_view>

namespace unitlib::app {

/// Bytes of the first character of a UTF-8 text that is not empty; 1 for a malformed byte.
std::size_t CharacterSize(std::string_view Text) noexcept;

/// Columns of a UTF-8 text: East-Asian wide characters take two, combining marks none, all others one.
std::size_t DisplayWidth(std::string_view Text) noexcept;

} // namespace unitlib::app
