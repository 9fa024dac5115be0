#include "tests/windows/OtherProcess.h"

#include "tests/windows/TestFolder.h"

#include <gtest/gtest.h>

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <atomic>

namespace windows_test {
namespace {

constexpr DWORD Patience = 20000; // milliseconds

std::wstring OwnProgram() {
  wchar_t Path[MAX_PATH * 4] = L"";
  GetModuleFileNameW(nullptr, Path, MAX_PATH * 4);
  return Path;
}

HANDLE Event(const std::wstring& Name) {
  return CreateEventW(nullptr, TRUE, FALSE, Name.c_str());
}

HANDLE Open(const wchar_t* File, DWORD Share) {
  return CreateFileW(File, GENERIC_READ, Share, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
}

/// Holds the file until told to end, then reads it through the handle: whatever has happened to the name, the
/// content must be what it was.
int Hold(const wchar_t* File, DWORD Share, DWORD Milliseconds, HANDLE Begun, HANDLE MayEnd) {
  const std::string Before = ReadBytes(std::u16string(File, File + wcslen(File)));
  const HANDLE Handle = Open(File, Share);
  if (Handle == INVALID_HANDLE_VALUE) return 3;
  SetEvent(Begun);
  WaitForSingleObject(MayEnd, Milliseconds);
  std::string After(Before.size() + 1, '\0');
  DWORD Got = 0;
  const BOOL Read = ReadFile(Handle, After.data(), static_cast<DWORD>(After.size()), &Got, nullptr);
  CloseHandle(Handle);
  After.resize(Got);
  return Read && After == Before ? 0 : 4;
}

int SaveUntilTold(const std::u16string& File, HANDLE Begun, HANDLE MayEnd) {
  bool First = true;
  while (WaitForSingleObject(MayEnd, 0) == WAIT_TIMEOUT) {
    if (Load(File) != UL_OK) return 5; // never half a file
    const ul_status Status = Save(File);
    if (Status != UL_OK && Status != UL_ERROR_FILE) return 6; // the other one may be at it just now
    if (First) SetEvent(Begun);
    First = false;
  }
  return 0;
}

} // namespace

TOtherProcess::TOtherProcess(const std::string& What, const std::u16string& File) {
  static std::atomic<unsigned> Counter{0};
  const std::wstring Names =
      L"unitlib-test-" + std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(++Counter);
  FBegun = Event(Names + L"-begun");
  FMayEnd = Event(Names + L"-end");
  std::wstring Line = L"\"" + OwnProgram() + L"\" --other " + std::wstring(What.begin(), What.end()) +
                      L" \"" + Wide(File) + L"\" " + Names;
  STARTUPINFOW Start{};
  Start.cb = sizeof Start;
  PROCESS_INFORMATION Made{};
  EXPECT_TRUE(
      CreateProcessW(nullptr, Line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &Start, &Made))
      << GetLastError();
  if (Made.hThread) CloseHandle(Made.hThread);
  FProcess = Made.hProcess;
  const HANDLE Either[] = {FBegun, FProcess};
  EXPECT_EQ(WAIT_OBJECT_0, WaitForMultipleObjects(2, Either, FALSE, Patience))
      << "the other process has not begun";
}

unsigned long TOtherProcess::End() {
  if (!FProcess) return 0;
  DWORD Code = 99;
  SetEvent(FMayEnd);
  if (WaitForSingleObject(FProcess, Patience) != WAIT_OBJECT_0) TerminateProcess(FProcess, 98);
  GetExitCodeProcess(FProcess, &Code);
  for (void** Handle : {&FProcess, &FBegun, &FMayEnd}) {
    CloseHandle(*Handle);
    *Handle = nullptr;
  }
  return Code;
}

int RunOtherProcess(const wchar_t* What, const wchar_t* File, const wchar_t* EventNames) {
  const std::wstring Names = EventNames, Task = What;
  const HANDLE Begun = Event(Names + L"-begun"), MayEnd = Event(Names + L"-end");
  constexpr DWORD ShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  if (Task == L"read-sharing-all") return Hold(File, ShareAll, Patience, Begun, MayEnd);
  if (Task == L"read-sharing-read") return Hold(File, FILE_SHARE_READ, Patience, Begun, MayEnd);
  if (Task == L"read-for-a-moment") return Hold(File, FILE_SHARE_READ, 60, Begun, MayEnd);
  if (Task == L"save") {
    const TTestFolder Own;
    return SaveUntilTold(std::u16string(File, File + wcslen(File)), Begun, MayEnd);
  }
  return 2;
}

} // namespace windows_test
