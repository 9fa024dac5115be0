/// UTF-8 at the terminal: the library's text is UTF-16, arguments, files and the screen are UTF-8.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace unitlib::app {

/// Typed or read text as the library's text.
/// errors      EConvertError Text is not well-formed UTF-8 (a replaced character could change a name or a
/// number)
std::u16string FromTerminal(std::string_view Text);

/// Text that is safe on one line of a terminal: control characters as \n, \t or \xHH, malformed bytes as
/// \xHH.
std::string Printable(std::string_view Text);

/// No place in a text is known.
inline constexpr std::size_t NoPlace = static_cast<std::size_t>(-1);

/// Two indented lines, the text and a caret under the byte at Place (the end of the text is a place too):
///     12x
///       ^
/// Without a place only the text. A long text is cut to what surrounds the place.
std::string MarkedText(std::string_view Text, std::size_t Place);

/// Bytes of the UTF-8 form of the first Count UTF-16 units of Text.
std::size_t Utf8Offset(std::u16string_view Text, std::size_t Count);

/// Where reading a number text stops: the first byte that cannot belong to a number, the end where something
/// is missing, NoPlace where the form is right (the number may still be out of range).
///   NumberStop("12x") == 2, NumberStop("1e") == 2, NumberStop("1e400") == NoPlace
std::size_t NumberStop(std::string_view Text) noexcept;

} // namespace unitlib::app
