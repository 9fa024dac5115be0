/// Whole files: read at once, written all or nothing.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace unitlib {

/// Size in bytes from which on a file is refused: a sparse file of a terabyte must not take the host's
/// memory.
constexpr std::size_t MaxWholeFile = std::size_t{1} << 28;

/// Content of a regular file of at most MaxWholeFile bytes.
/// errors      EFileError missing, not readable, too large, or no regular file (a folder, a pipe)
std::string ReadWholeFile(std::u16string_view Path);

/// Writes Content under a temporary name in the same folder, flushes it to disk and renames it over Path,
/// whose permissions are kept. A symbolic link is followed, not replaced; of several hard links only this one
/// gets the new content. A file without right to write is not replaced. When anything fails the old file is
/// as it was and the temporary one is gone; what a killed process left behind the next save of this file
/// removes (not on Windows).
/// errors      EFileError the file cannot be written or replaced
void WriteWholeFile(std::u16string_view Path, std::string_view Content);

} // namespace unitlib
