#include "apps/common/Platform.h"

#include "unitlib/rtl/Text.h"

#define WIN32_LEAN_AND_MEAN
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
// After windows.h, which it needs.
#include <shellapi.h>

#include <cerrno>
#include <cwchar>
#include <fcntl.h>
#include <io.h>
#include <process.h>
#include <sys/stat.h>

namespace unitlib::app::platform {
namespace {

std::wstring Wide(std::string_view Text) {
  const std::u16string Units = FromUtf8(Text);
  return {Units.begin(), Units.end()};
}

std::string Narrow(const wchar_t* Text) {
  const std::wstring_view Units(Text);
  return ToUtf8(std::u16string(Units.begin(), Units.end()));
}

bool FailWith(int Code) {
  errno = Code;
  return false;
}

int ErrnoOf(DWORD Error) {
  switch (Error) {
  case ERROR_FILE_NOT_FOUND:
  case ERROR_PATH_NOT_FOUND:
    return ENOENT;
  case ERROR_DISK_FULL:
    return ENOSPC;
  default:
    return EACCES;
  }
}

} // namespace

std::vector<std::string> Arguments(int, char**) {
  // The char arguments have lost what the code page cannot write.
  int Count = 0;
  LPWSTR* Values = CommandLineToArgvW(GetCommandLineW(), &Count);
  std::vector<std::string> Result;
  for (int I = 1; Values && I < Count; ++I) Result.push_back(Narrow(Values[I]));
  if (Values) LocalFree(Values);
  return Result;
}

std::string Environment(const char* Name) {
  const wchar_t* const Value = _wgetenv(Wide(Name).c_str());
  return Value ? Narrow(Value) : "";
}

void PrepareStreams() {
  SetConsoleOutputCP(CP_UTF8);
  SetConsoleCP(CP_UTF8);
  for (std::FILE* Stream : {stdin, stdout, stderr})
    if (_fileno(Stream) >= 0) _setmode(_fileno(Stream), _O_BINARY);
}

int RunProgram(const std::string& Path, const std::vector<std::string>& Arguments) {
  // The system hands on one line; no argument of ours can hold a quote, which no path has.
  std::vector<std::wstring> Quoted = {L"\"" + Wide(Path) + L"\""};
  for (const std::string& Argument : Arguments) Quoted.push_back(L"\"" + Wide(Argument) + L"\"");
  std::vector<const wchar_t*> Values;
  for (const std::wstring& Text : Quoted) Values.push_back(Text.c_str());
  Values.push_back(nullptr);
  return static_cast<int>(_wspawnv(_P_WAIT, Wide(Path).c_str(), Values.data()));
}

bool IsTerminal(std::FILE* Stream) {
  return _fileno(Stream) >= 0 && _isatty(_fileno(Stream)) != 0;
}

std::size_t TerminalWidth(std::FILE* Stream) {
  constexpr std::size_t Default = 80;
  CONSOLE_SCREEN_BUFFER_INFO Info{};
  const auto Handle = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(Stream)));
  if (!GetConsoleScreenBufferInfo(Handle, &Info)) return Default;
  return static_cast<std::size_t>(Info.srWindow.Right - Info.srWindow.Left + 1);
}

std::FILE* Open(const std::string& Path, const char* Mode) {
  return _wfopen(Wide(Path).c_str(), Wide(Mode).c_str());
}

std::ptrdiff_t ReadSome(std::FILE* Stream, char* Buffer, std::size_t Size) {
  return _read(_fileno(Stream), Buffer, static_cast<unsigned>(Size));
}

std::uint64_t FileSize(std::FILE* Stream) {
  struct _stat64 Info {};
  const bool Known = _fstat64(_fileno(Stream), &Info) == 0 && (Info.st_mode & _S_IFMT) == _S_IFREG;
  return Known ? static_cast<std::uint64_t>(Info.st_size) : 0;
}

bool IsSpecialFile(const std::string& Path) {
  struct _stat64 Info {};
  return _wstat64(Wide(Path).c_str(), &Info) == 0 && (Info.st_mode & _S_IFMT) != _S_IFREG;
}

std::string FollowLinks(const std::string& Path) {
  return Path;
}

std::FILE* CreateTemporary(const std::string& Target, std::string& TemporaryPath) {
  static unsigned Counter = 0;
  TemporaryPath =
      Target + "." + std::to_string(GetCurrentProcessId()) + "-" + std::to_string(++Counter) + ".tmp";
  return Open(TemporaryPath, "wbx");
}

bool Publish(std::FILE* Stream, const std::string& TemporaryPath, const std::string& Target) {
  const bool Flushed = std::fflush(Stream) == 0 && _commit(_fileno(Stream)) == 0;
  const int Code = errno;
  const bool Closed = std::fclose(Stream) == 0;
  if (!Flushed) return FailWith(Code);
  if (!Closed) return false;
  const DWORD Flags = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
  if (MoveFileExW(Wide(TemporaryPath).c_str(), Wide(Target).c_str(), Flags)) return true;
  return FailWith(ErrnoOf(GetLastError()));
}

void Discard(std::FILE* Stream, const std::string& TemporaryPath) noexcept {
  if (Stream) std::fclose(Stream);
  DeleteFileW(Wide(TemporaryPath).c_str());
}

} // namespace unitlib::app::platform
