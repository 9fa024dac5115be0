/// A second process of this test program that does something to a file until it is told to end.
#pragma once

#include <string>

namespace windows_test {

/// What the other process does.
///   read-sharing-all      holds the file open as the library's own reader does
///   read-sharing-read     holds it open so that nobody may write or remove it
///   read-for-a-moment     the same for 60 milliseconds
///   save                  loads it and saves it again and again
class TOtherProcess {
public:
  /// Returns when the other process has begun.
  TOtherProcess(const std::string& What, const std::u16string& File);
  ~TOtherProcess() { End(); }
  TOtherProcess(const TOtherProcess&) = delete;
  TOtherProcess& operator=(const TOtherProcess&) = delete;

  /// return: what the process ended with, 0 when all was well
  unsigned long End();

private:
  void* FProcess = nullptr;
  void* FBegun = nullptr;
  void* FMayEnd = nullptr;
};

/// The body of the other process. return: its exit code
int RunOtherProcess(const wchar_t* What, const wchar_t* File, const wchar_t* EventNames);

} // namespace windows_test
