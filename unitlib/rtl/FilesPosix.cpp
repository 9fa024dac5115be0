/// Files and folders on POSIX systems.
#include "unitlib/rtl/Errors.h"
#include "unitlib/rtl/FileFolders.h"
#include "unitlib/rtl/Files.h"
#include "unitlib/rtl/Platform.h"
#include "unitlib/rtl/Text.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <memory>
#include <pwd.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <vector>

namespace unitlib {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void RaiseErrno(std::u16string_view Message, const std::string& Path, int Code) {
  throw EFileError(std::u16string(Message), FromUtf8(Path), FromUtf8(std::generic_category().message(Code)));
}

/// Path as the system takes it.
/// errors      EFileError it holds a NUL character, at which the system would cut it: another file
std::string NativePath(std::u16string_view Path, std::u16string_view Message) {
  std::string Name = ToUtf8(Path);
  if (Name.find('\0') != std::string::npos) RaiseErrno(Message, Name, EINVAL);
  return Name;
}

/// An open file, closed at the end of its life.
class THandle {
public:
  explicit THandle(int Handle) : FHandle(Handle) {}
  ~THandle() {
    if (FHandle >= 0) close(FHandle);
  }
  THandle(const THandle&) = delete;
  THandle& operator=(const THandle&) = delete;
  int Get() const { return FHandle; }
  int Release() {
    const int Old = FHandle;
    FHandle = -1;
    return Old;
  }

private:
  int FHandle;
};

/// open(), begun anew when a signal interrupts it.
int OpenFile(const char* Name, int Flags, mode_t Mode = 0) {
  for (;;) {
    const int Handle = open(Name, Flags | O_CLOEXEC, Mode);
    if (Handle >= 0 || errno != EINTR) return Handle;
  }
}

/// The file at the end of a chain of links; it need not exist.
std::string FollowLinks(std::string Path) {
  constexpr int MaxLinks = 40; // as the kernel has it
  for (int I = 0; I < MaxLinks; ++I) {
    std::error_code Error;
    const fs::file_type Type = fs::symlink_status(Path, Error).type();
    // Not knowing must not mean that a link is taken for a file and replaced.
    if (Type == fs::file_type::none) RaiseErrno(u"Cannot be written", Path, Error.value());
    if (Type != fs::file_type::symlink) return Path;
    const fs::path Target = fs::read_symlink(Path, Error);
    if (Error) RaiseErrno(u"Cannot follow the link", Path, Error.value());
    Path = Target.is_absolute() ? Target.string() : (fs::path(Path).parent_path() / Target).string();
  }
  RaiseErrno(u"Cannot follow the link", Path, ELOOP);
}

/// The file that is to be replaced, if there is one.
struct TOldFile {
  bool Exists = false;
  struct stat Info {};

  explicit TOldFile(const std::string& Path) {
    Exists = stat(Path.c_str(), &Info) == 0;
    if (!Exists && errno != ENOENT) RaiseErrno(u"Cannot be written", Path, errno);
    if (Exists && !S_ISREG(Info.st_mode))
      throw EFileError(u"Cannot be replaced", FromUtf8(Path), u"Not a regular file");
    // Renaming asks for rights on the folder only; a file that its owner has protected stays as it is.
    if (Exists && faccessat(AT_FDCWD, Path.c_str(), W_OK, AT_EACCESS) != 0)
      RaiseErrno(u"Cannot be replaced", Path, errno);
  }
};

constexpr std::string_view TemporaryEnd = ".tmp";

/// A file that is removed again unless it has been renamed to its final place. It is called Target, a dot,
/// the process, a dash, a number, ".tmp", and is locked as long as its process lives: one that can be locked
/// was left behind by a process that was killed.
class TTemporaryFile {
public:
  TTemporaryFile(std::string Target, mode_t Mode) : FTarget(std::move(Target)), FHandle(Create(Mode)) {}
  ~TTemporaryFile() {
    if (!FName.empty()) unlink(FName.c_str());
  }
  TTemporaryFile(const TTemporaryFile&) = delete;
  TTemporaryFile& operator=(const TTemporaryFile&) = delete;

  void TakeOwnerAndMode(const struct stat& Old) const {
    // The owner can only be kept by a privileged user; for others the file becomes their own, as with any
    // editor.
    if (fchown(FHandle.Get(), Old.st_uid, Old.st_gid) != 0) errno = 0;
    if (fchmod(FHandle.Get(), Old.st_mode & 07777) != 0) RaiseErrno(u"Cannot be written", FTarget, errno);
  }

  void Write(std::string_view Content) const {
    while (!Content.empty()) {
      const ssize_t Written = write(FHandle.Get(), Content.data(), Content.size());
      if (Written < 0 && errno == EINTR) continue;
      if (Written <= 0) RaiseErrno(u"Cannot be written", FTarget, Written < 0 ? errno : ENOSPC);
      Content.remove_prefix(static_cast<size_t>(Written));
    }
  }

  /// The file stays open, and so locked, until it has its final name. What closing it could report has been
  /// reported by fsync.
  void Publish() {
    while (fsync(FHandle.Get()) != 0)
      if (errno != EINTR) RaiseErrno(u"Cannot be written", FTarget, errno);
    if (rename(FName.c_str(), FTarget.c_str()) != 0) RaiseErrno(u"Cannot be replaced", FTarget, errno);
    FName.clear();
  }

private:
  int Create(mode_t Mode) {
    constexpr int Tries = 1000; // names that a killed process of the same number has left behind
    for (int I = 0; I < Tries; ++I) {
      FName = NewName(FTarget);
      THandle Handle(OpenFile(FName.c_str(), O_WRONLY | O_CREAT | O_EXCL, Mode));
      if (Handle.Get() < 0) {
        FName.clear();
        if (errno == EEXIST) continue;
        RaiseErrno(u"Cannot be written", FTarget, errno);
      }
      if (IsOurs(Handle.Get())) return Handle.Release();
    }
    FName.clear();
    RaiseErrno(u"Cannot be written", FTarget, EEXIST);
  }

  /// False when another save, which is just clearing away what was left behind, came before the lock.
  static bool IsOurs(int Handle) {
    if (flock(Handle, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) return false;
    struct stat Info {};
    return fstat(Handle, &Info) != 0 || Info.st_nlink > 0;
  }

  static std::string NewName(const std::string& Target) {
    static std::atomic<unsigned> Counter{0};
    std::string Name = Target + "." + std::to_string(getpid()) + "-" + std::to_string(++Counter);
    return Name.append(TemporaryEnd);
  }

  std::string FTarget;
  std::string FName; // empty: there is no file to remove
  THandle FHandle;
};

/// True for Head, digits, a dash, digits, ".tmp".
bool IsTemporaryName(std::string_view Name, std::string_view Head) {
  if (Name.size() <= Head.size() + TemporaryEnd.size() || Name.substr(0, Head.size()) != Head) return false;
  if (Name.substr(Name.size() - TemporaryEnd.size()) != TemporaryEnd) return false;
  const std::string_view Middle = Name.substr(Head.size(), Name.size() - Head.size() - TemporaryEnd.size());
  const size_t Dash = Middle.find('-');
  auto IsNumber = [](std::string_view Text) {
    return !Text.empty() &&
           std::all_of(Text.begin(), Text.end(), [](char C) { return C >= '0' && C <= '9'; });
  };
  return Dash != std::string_view::npos && IsNumber(Middle.substr(0, Dash)) &&
         IsNumber(Middle.substr(Dash + 1));
}

/// Removes what saves of killed processes have left beside Target. A temporary file that cannot be locked is
/// in the works and stays; so does every one on a file system without locks. Failures do not matter here.
void RemoveLeftovers(const std::string& Target) {
  // Not std::filesystem::directory_iterator: that of GCC 12 ends the process where memory runs out.
  const size_t Split = Target.rfind('/') + 1;
  const std::string Folder = Target.substr(0, Split), Head = Target.substr(Split) + ".";
  const std::unique_ptr<DIR, int (*)(DIR*)> Entries(opendir(Split == 0 ? "." : Folder.c_str()), closedir);
  if (!Entries) return;
  // The stream is this call's own: readdir is safe beside other threads.
  while (const dirent* const Entry = readdir(Entries.get())) { // NOLINT(concurrency-mt-unsafe)
    if (!IsTemporaryName(Entry->d_name, Head)) continue;
    const std::string Name = Folder + Entry->d_name;
    const THandle Handle(OpenFile(Name.c_str(), O_RDONLY | O_NONBLOCK | O_NOFOLLOW));
    if (Handle.Get() >= 0 && flock(Handle.Get(), LOCK_EX | LOCK_NB) == 0) unlink(Name.c_str());
  }
}

/// Makes a rename last through a power cut. The new file is in place already, so a failure here is no
/// failure.
void FlushFolder(const std::string& Target) {
  const fs::path Folder = fs::path(Target).parent_path();
  const THandle Handle(OpenFile(Folder.empty() ? "." : Folder.c_str(), O_RDONLY | O_DIRECTORY));
  if (Handle.Get() >= 0 && fsync(Handle.Get()) != 0) errno = 0;
}

} // namespace

char16_t PathDelim() noexcept {
  return u'/';
}

namespace platform {

std::u16string ExePath() {
  std::vector<char> Path(PATH_MAX);
  const ssize_t Size = readlink("/proc/self/exe", Path.data(), Path.size());
  if (Size <= 0) RaiseErrno(u"The folder of the program is not known", "/proc/self/exe", errno);
  const std::string_view Name(Path.data(), static_cast<size_t>(Size));
  return FromUtf8(Name.substr(0, Name.rfind('/') + 1));
}

std::u16string CommonDocumentsPath() {
  std::vector<char> Buffer(16384);
  struct passwd Entry {};
  struct passwd* Found = nullptr;
  const int Error = getpwuid_r(getuid(), &Entry, Buffer.data(), Buffer.size(), &Found);
  if (!Found || !Found->pw_dir || !*Found->pw_dir)
    RaiseErrno(u"The home folder of the user is not known", "password database", Error ? Error : ENOENT);
  return IncludeTrailingPathDelimiter(FromUtf8(Found->pw_dir)) + u"Documents";
}

} // namespace platform

void ForceDirectories(std::u16string_view Path) {
  const std::string Name = NativePath(Path, u"Cannot create the folder");
  std::error_code Error;
  fs::create_directories(Name, Error);
  std::error_code Ignored;
  if (Error && !fs::is_directory(Name, Ignored)) RaiseErrno(u"Cannot create the folder", Name, Error.value());
}

std::string ReadWholeFile(std::u16string_view Path) {
  const std::string Name = NativePath(Path, u"Cannot be read");
  // Without O_NONBLOCK opening a pipe would wait for a writer before it can be refused.
  const THandle Handle(OpenFile(Name.c_str(), O_RDONLY | O_NONBLOCK));
  if (Handle.Get() < 0) RaiseErrno(u"Cannot be read", Name, errno);
  struct stat Info {};
  if (fstat(Handle.Get(), &Info) != 0) RaiseErrno(u"Cannot be read", Name, errno);
  if (!S_ISREG(Info.st_mode)) throw EFileError(u"Cannot be read", Path, u"Not a regular file");
  auto RequireSize = [&Name](std::uintmax_t Size) {
    if (Size > MaxWholeFile) RaiseErrno(u"Cannot be read", Name, EFBIG);
  };
  RequireSize(static_cast<std::uintmax_t>(Info.st_size));
  std::string Content(static_cast<size_t>(Info.st_size), '\0');
  // Behind its end by the size it had, a file goes on only when it grows meanwhile.
  char More[4096];
  for (size_t Used = 0;;) {
    const bool Inside = Used < Content.size();
    const ssize_t Got = read(Handle.Get(), Inside ? Content.data() + Used : More,
                             Inside ? Content.size() - Used : sizeof More);
    if (Got < 0 && errno == EINTR) continue;
    if (Got < 0) RaiseErrno(u"Cannot be read", Name, errno);
    if (Got == 0) {
      Content.resize(Used);
      return Content;
    }
    Used += static_cast<size_t>(Got);
    if (!Inside) Content.append(More, static_cast<size_t>(Got));
    RequireSize(Used);
  }
}

void WriteWholeFile(std::u16string_view Path, std::string_view Content) {
  const std::string Target = FollowLinks(NativePath(Path, u"Cannot be written"));
  const TOldFile Old(Target);
  RemoveLeftovers(Target);
  // Nobody else may open the new file before it has the permissions of the old one.
  TTemporaryFile File(Target, Old.Exists ? 0600 : 0666);
  if (Old.Exists) File.TakeOwnerAndMode(Old.Info);
  File.Write(Content);
  File.Publish();
  FlushFolder(Target);
}

} // namespace unitlib
