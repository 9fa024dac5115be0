/// Whole files: read at once, written all or nothing.
#pragma once

#include <string>
#include <string_view>

namespace unitlib {

/// Content of a regular file.
/// errors      EFileError missing, not readable, or no regular file (a folder, a pipe)
std::string ReadWholeFile(std::u16string_view Path);

/// Writes Content under a temporary name in the same folder, flushes it to disk and renames it over Path,
/// whose permissions are kept. A link is followed, not replaced. When anything fails the old file is as it
/// was and the temporary one is gone. errors      EFileError the file cannot be written or replaced
void WriteWholeFile(std::u16string_view Path, std::string_view Content);

} // namespace unitlib
