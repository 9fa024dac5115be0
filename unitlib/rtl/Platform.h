/// What each platform answers for itself; one source file per platform defines these.
#pragma once

#include <string>

namespace unitlib::platform {

/// Folder of the program file, with trailing delimiter.
/// errors      EFileError
std::u16string ExePath();
/// Documents folder of all users, or the stand-in FileFolders.h describes.
/// errors      EFileError
std::u16string CommonDocumentsPath();

} // namespace unitlib::platform
