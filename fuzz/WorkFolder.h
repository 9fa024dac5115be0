/// A folder of this process for the files of a run: in memory where the system has such a place, removed at
/// the end.
#pragma once

#include <string>
#include <string_view>

namespace unitlib::fuzz {

std::string WorkPath(std::string_view Name);
inline std::u16string WideWorkPath(std::string_view Name) {
  const std::string Path = WorkPath(Name);
  return std::u16string(Path.begin(), Path.end());
}

std::string ReadFile(const std::string& Path);
void WriteFile(const std::string& Path, std::string_view Content);

} // namespace unitlib::fuzz
