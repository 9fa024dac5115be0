/// The program's lock on its settings file: while it is held, no other instance changes the file.
#pragma once

#include <string>

namespace unitlib::takeoff {

/// Holds the lock of one file. Saving replaces the file by a new one, so a lock has to be released before and
/// taken again after: the file that was locked is gone then.
class TSettingsLock {
public:
  explicit TSettingsLock(std::u16string Path) : FPath(std::move(Path)) {}
  ~TSettingsLock() { Release(); }
  TSettingsLock(const TSettingsLock&) = delete;
  TSettingsLock& operator=(const TSettingsLock&) = delete;

  /// False: another program has it, or the file cannot be opened.
  bool Take();
  void Release() noexcept;
  bool Held() const noexcept { return FHandle != None; }

private:
  static constexpr int None = -1;
  std::u16string FPath;
  int FHandle = None;
};

} // namespace unitlib::takeoff
