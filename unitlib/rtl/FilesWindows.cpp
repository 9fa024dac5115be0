/// Files and folders on Windows.
#include "unitlib/rtl/Errors.h"
#include "unitlib/rtl/FileFolders.h"
#include "unitlib/rtl/Files.h"
#include "unitlib/rtl/Numbers.h"
#include "unitlib/rtl/Platform.h"
#include "unitlib/rtl/Text.h"

#define WIN32_LEAN_AND_MEAN
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <shlobj.h>

#include <algorithm>
#include <atomic>
#include <vector>

namespace unitlib {
namespace {

static_assert(sizeof(wchar_t) == sizeof(char16_t));

std::wstring Wide(std::u16string_view Text) {
  return std::wstring(Text.begin(), Text.end());
}
std::u16string Narrow(std::wstring_view Text) {
  return std::u16string(Text.begin(), Text.end());
}

std::u16string SystemMessage(DWORD Code) {
  wchar_t Text[512];
  const DWORD Size = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, Code,
                                    0, Text, static_cast<DWORD>(std::size(Text)), nullptr);
  return Size ? Trim(Narrow({Text, Size})) : u"error " + IntToStr(Code);
}

[[noreturn]] void RaiseLast(std::u16string_view Message, std::u16string_view Path,
                            DWORD Code = GetLastError()) {
  throw EFileError(std::u16string(Message), Path, SystemMessage(Code));
}

/// Path as the system takes it.
/// errors      EFileError it holds a NUL character, at which the system would cut it: another file
std::wstring NativePath(std::u16string_view Path, std::u16string_view Message) {
  if (Path.find(u'\0') != Path.npos) RaiseLast(Message, Path, ERROR_INVALID_NAME);
  return Wide(Path);
}

/// An open file, closed at the end of its life.
class THandle {
public:
  explicit THandle(HANDLE Handle) : FHandle(Handle) {}
  ~THandle() { Close(); }
  THandle(const THandle&) = delete;
  THandle& operator=(const THandle&) = delete;
  HANDLE Get() const { return FHandle; }
  bool IsOpen() const { return FHandle != INVALID_HANDLE_VALUE; }
  void Close() {
    if (IsOpen()) CloseHandle(FHandle);
    FHandle = INVALID_HANDLE_VALUE;
  }

private:
  HANDLE FHandle;
};

/// Path from the root on; replacing a file asks for one.
std::wstring FullPath(const std::wstring& Path) {
  std::vector<wchar_t> Name(32768);
  const DWORD Size = GetFullPathNameW(Path.c_str(), static_cast<DWORD>(Name.size()), Name.data(), nullptr);
  return Size == 0 || Size >= Name.size() ? Path : std::wstring(Name.data(), Size);
}

/// The file at the end of a chain of links, or Path itself where the system cannot tell.
std::wstring FollowLinks(const std::wstring& Path) {
  const DWORD Attributes = GetFileAttributesW(Path.c_str());
  if (Attributes == INVALID_FILE_ATTRIBUTES || !(Attributes & FILE_ATTRIBUTE_REPARSE_POINT)) return Path;
  const THandle File(CreateFileW(Path.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                 nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  if (!File.IsOpen()) return Path;
  std::vector<wchar_t> Name(32768);
  const DWORD Size = GetFinalPathNameByHandleW(File.Get(), Name.data(), static_cast<DWORD>(Name.size()), 0);
  return Size == 0 || Size >= Name.size() ? Path : std::wstring(Name.data(), Size);
}

/// A file that is removed again unless it has been moved to its final place.
class TTemporaryFile {
public:
  explicit TTemporaryFile(std::wstring Target) : FTarget(std::move(Target)), FHandle(Create()) {
    if (!FHandle.IsOpen()) RaiseLast(u"Cannot be written", Narrow(FTarget));
    FExists = true;
  }
  ~TTemporaryFile() {
    FHandle.Close();
    if (FExists) DeleteFileW(FName.c_str());
  }
  TTemporaryFile(const TTemporaryFile&) = delete;
  TTemporaryFile& operator=(const TTemporaryFile&) = delete;

  void Write(std::string_view Content) const {
    while (!Content.empty()) {
      const DWORD Part = static_cast<DWORD>(std::min<size_t>(Content.size(), 1U << 30));
      DWORD Written = 0;
      if (!WriteFile(FHandle.Get(), Content.data(), Part, &Written, nullptr))
        RaiseLast(u"Cannot be written", Narrow(FTarget));
      if (Written == 0) RaiseLast(u"Cannot be written", Narrow(FTarget), ERROR_DISK_FULL);
      Content.remove_prefix(Written);
    }
  }

  void Publish() {
    if (!FlushFileBuffers(FHandle.Get())) RaiseLast(u"Cannot be written", Narrow(FTarget));
    FHandle.Close();
    constexpr int Tries = 10; // a virus scanner or an indexer may hold the old file for a moment
    for (int I = 1; !MoveOver(); ++I) {
      const DWORD Code = GetLastError();
      if (!MayPass(Code) || I == Tries) RaiseLast(u"Cannot be replaced", Narrow(FTarget), Code);
      Sleep(20);
    }
    FExists = false;
  }

private:
  HANDLE Create() {
    constexpr int Tries = 1000; // names that a killed process of the same number has left behind
    for (int I = 1;; ++I) {
      FName = NewName(FTarget);
      const HANDLE File =
          CreateFileW(FName.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
      if (File != INVALID_HANDLE_VALUE || GetLastError() != ERROR_FILE_EXISTS || I == Tries) return File;
    }
  }

  /// Somebody else holds the old file, or is just replacing it himself.
  static bool MayPass(DWORD Code) {
    constexpr DWORD Codes[] = {ERROR_SHARING_VIOLATION, ERROR_ACCESS_DENIED,
                               ERROR_LOCK_VIOLATION,    ERROR_ALREADY_EXISTS,
                               ERROR_FILE_EXISTS,       ERROR_FILE_NOT_FOUND,
                               ERROR_USER_MAPPED_FILE,  ERROR_UNABLE_TO_REMOVE_REPLACED};
    return std::find(std::begin(Codes), std::end(Codes), Code) != std::end(Codes);
  }

  /// Asked before ReplaceFile, which may leave files of its own behind when it fails (Wine 8 does).
  bool MayBeReplaced() const {
    return THandle(CreateFileW(FTarget.c_str(), GENERIC_READ | DELETE | SYNCHRONIZE,
                               FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                               0, nullptr))
        .IsOpen();
  }

  /// ReplaceFile keeps the permissions of the old file; it needs one.
  bool MoveOver() const {
    const bool Exists = GetFileAttributesW(FTarget.c_str()) != INVALID_FILE_ATTRIBUTES;
    if (Exists && !MayBeReplaced()) return false;
    if (Exists && ReplaceFileW(FTarget.c_str(), FName.c_str(), nullptr, REPLACEFILE_IGNORE_MERGE_ERRORS,
                               nullptr, nullptr))
      return true;
    return !Exists && MoveFileExW(FName.c_str(), FTarget.c_str(), MOVEFILE_WRITE_THROUGH);
  }

  static std::wstring NewName(const std::wstring& Target) {
    static std::atomic<unsigned> Counter{0};
    return Target + L"." + std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(++Counter) +
           L".tmp";
  }

  std::wstring FTarget;
  std::wstring FName;
  THandle FHandle;
  bool FExists = false;
};

} // namespace

char16_t PathDelim() noexcept {
  return u'\\';
}

namespace platform {

std::u16string ExePath() {
  std::vector<wchar_t> Name(32768);
  const DWORD Size = GetModuleFileNameW(nullptr, Name.data(), static_cast<DWORD>(Name.size()));
  if (Size == 0) RaiseLast(u"The folder of the program is not known", u"");
  const std::wstring_view Path(Name.data(), Size);
  return Narrow(Path.substr(0, Path.find_last_of(L"\\/") + 1));
}

std::u16string CommonDocumentsPath() {
  wchar_t Path[MAX_PATH];
  const HRESULT Result = SHGetFolderPathW(nullptr, CSIDL_COMMON_DOCUMENTS, nullptr, SHGFP_TYPE_CURRENT, Path);
  if (Result != S_OK)
    RaiseLast(u"The common documents folder is not known", u"", static_cast<DWORD>(Result) & 0xFFFF);
  return Narrow(Path);
}

} // namespace platform

void ForceDirectories(std::u16string_view Path) {
  const std::wstring Whole = NativePath(Path, u"Cannot create the folder");
  auto IsFolder = [](const std::wstring& Name) {
    const DWORD Attributes = GetFileAttributesW(Name.c_str());
    return Attributes != INVALID_FILE_ATTRIBUTES && (Attributes & FILE_ATTRIBUTE_DIRECTORY);
  };
  for (size_t End = 0; End != std::wstring::npos;) {
    End = Whole.find_first_of(L"\\/", End + 1);
    const std::wstring Part = Whole.substr(0, End);
    if (Part.back() == L':' || IsFolder(Part)) continue;
    // A part such as a drive or a share cannot be made; what counts is that the whole exists in the end.
    CreateDirectoryW(Part.c_str(), nullptr);
  }
  if (!Whole.empty() && !IsFolder(Whole)) RaiseLast(u"Cannot create the folder", Path, ERROR_PATH_NOT_FOUND);
}

namespace {

/// Sharing everything: a reader must never stand in the way of another program's save. While that is going on
/// there is a moment without any file of the name, or with one that cannot be opened.
HANDLE OpenForReading(std::u16string_view Path) {
  const std::wstring Name = NativePath(Path, u"Cannot be read");
  constexpr int Tries = 4;
  for (int I = 1;; ++I) {
    const HANDLE File =
        CreateFileW(Name.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                    nullptr, OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr);
    const DWORD Code = GetLastError();
    const bool MayPass = Code == ERROR_FILE_NOT_FOUND || Code == ERROR_SHARING_VIOLATION;
    if (File != INVALID_HANDLE_VALUE || !MayPass || I == Tries) return File;
    Sleep(10);
  }
}

} // namespace

std::string ReadWholeFile(std::u16string_view Path) {
  const THandle File(OpenForReading(Path));
  if (!File.IsOpen()) RaiseLast(u"Cannot be read", Path);
  if (GetFileType(File.Get()) != FILE_TYPE_DISK)
    throw EFileError(u"Cannot be read", Path, u"Not a regular file");
  LARGE_INTEGER Size{};
  if (!GetFileSizeEx(File.Get(), &Size)) RaiseLast(u"Cannot be read", Path);
  if (Size.QuadPart > static_cast<LONGLONG>(MaxWholeFile))
    RaiseLast(u"Cannot be read", Path, ERROR_FILE_TOO_LARGE);
  std::string Content(static_cast<size_t>(Size.QuadPart), '\0');
  size_t Used = 0;
  while (Used < Content.size()) {
    DWORD Got = 0;
    const DWORD Part = static_cast<DWORD>(std::min<size_t>(Content.size() - Used, 1U << 30));
    if (!ReadFile(File.Get(), Content.data() + Used, Part, &Got, nullptr)) RaiseLast(u"Cannot be read", Path);
    if (Got == 0) break;
    Used += Got;
  }
  Content.resize(Used);
  return Content;
}

void WriteWholeFile(std::u16string_view Path, std::string_view Content) {
  const std::wstring Target = FollowLinks(FullPath(NativePath(Path, u"Cannot be written")));
  const DWORD Attributes = GetFileAttributesW(Target.c_str());
  if (Attributes != INVALID_FILE_ATTRIBUTES && (Attributes & FILE_ATTRIBUTE_DIRECTORY))
    throw EFileError(u"Cannot be replaced", Path, u"Not a regular file");
  TTemporaryFile File(Target);
  File.Write(Content);
  File.Publish();
}

} // namespace unitlib
