/// The folders that settings files live in. A host (and every test) may put its own in their place.
#pragma once

#include <string>
#include <string_view>

namespace unitlib {

/// The platform's path delimiter: u'\\' on Windows, u'/' elsewhere.
char16_t PathDelim() noexcept;
/// Path with the platform's delimiter at its end, added only when none is there. An empty path stays empty.
std::u16string IncludeTrailingPathDelimiter(std::u16string_view Path);

/// Folder of the host's executable, with trailing delimiter.
/// errors      EFileError the system does not tell
std::u16string GetExePath();

/// Documents folder shared by all users. Where the system has none: "Documents" in the home folder that the
/// password database gives for the user (no environment variable is read).
/// errors      EFileError the system
/// does not tell
std::u16string GetCommonDocumentsPath();

/// Puts Path in place of the system's answer; an empty Path brings the system's answer back.
void SetExePath(std::u16string_view Path);
void SetCommonDocumentsPath(std::u16string_view Path);

/// Creates a folder with all missing parents.
/// errors      EFileError a folder cannot be made, or a file stands in the way
void ForceDirectories(std::u16string_view Path);

} // namespace unitlib
