/// What a shell may put in the place of the word under the cursor.
#pragma once

#include <string>
#include <vector>

namespace unitlib::app {

/// Candidates for the last of the words (without the program's name), in the order of help; the single text
/// FileNames where a file is expected. Nothing is thrown: without a readable settings file there are no
/// names.
std::vector<std::string> Complete(const std::vector<std::string>& Words);

/// Stands for the names of files, which the shell knows best.
inline constexpr const char* FileNames = ":files";

} // namespace unitlib::app
