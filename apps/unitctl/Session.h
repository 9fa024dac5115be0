/// The settings file of one run: loaded at the start, saved where a command changes it.
#pragma once

#include "apps/unitctl/Command.h"
#include "unitlib/model/ZELUnitMgr.h"

#include <string>

namespace unitlib::app {

/// Loads the settings for a command. The working copy in the user's documents is never written: unitctl works
/// on the named file alone.
class TSession {
public:
  /// errors      EFileError, EXmlError; ERefused the file is missing (with what to type), --system is unknown
  explicit TSession(const TContext& Context);

  /// A system is chosen, by the file or by --system.
  bool HasSystem() const noexcept;
  /// The system to work in. errors      ERefused none is chosen; the message says what to type
  static TConfig& System();
  /// Position of the system that the file has chosen; -1: none.
  int ChosenSystem() const noexcept { return FChosen; }
  /// Changes the choice that a save writes.
  void Choose(int System) noexcept;
  /// Writes the file. --system is for this run only and not written.
  void Save() const;

private:
  int FChosen = -1;
};

/// A command's FILE argument takes the place of --settings. errors      ERefused both are given and differ
void UseFileArgument(TContext& Context, const std::optional<std::string>& File);

/// Path of the settings file that a run works on, for messages.
std::string SettingsPath(const TContext& Context);

} // namespace unitlib::app
