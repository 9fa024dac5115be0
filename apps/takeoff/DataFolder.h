/// Where the program keeps things of its own: a folder of the user, never one beside the program.
#pragma once

#include <string>
#include <string_view>

namespace unitlib::takeoff {

/// Folder with the sample project and the name of the project opened last.
class TDataFolder {
public:
  /// Path is made when missing.
  /// errors      EFileError
  explicit TDataFolder(std::u16string_view Path);

  const std::u16string& Path() const noexcept { return FPath; }
  /// The sample project, made at the first call.
  /// errors      EProjectError
  std::u16string SampleProject() const;
  /// The project to open at a start without arguments: the last one if it is still there, else the sample.
  std::u16string ProjectToOpen() const;
  void Remember(std::u16string_view Project) const;

private:
  std::u16string FPath; // with trailing delimiter
};

/// The unit settings of a project are beside it: "house.takeoff" has "house.units.xml".
std::u16string SettingsBeside(std::u16string_view Project);

/// The path with the extension of projects, if it has none.
std::u16string WithExtension(std::u16string_view Project);

/// File name without folder and extension, for titles.
std::u16string ProjectTitle(std::u16string_view Project);

} // namespace unitlib::takeoff
