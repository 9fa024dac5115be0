/// Files and folders on POSIX systems.
#include "unitlib/rtl/Errors.h"
#include "unitlib/rtl/FileFolders.h"
#include "unitlib/rtl/Files.h"
#include "unitlib/rtl/Platform.h"
#include "unitlib/rtl/Text.h"

#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <pwd.h>
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

/// An open file, closed at the end of its life.
class THandle {
public:
  explicit THandle(int Handle) : FHandle(Handle) {}
  ~THandle() { Close(); }
  THandle(const THandle&) = delete;
  THandle& operator=(const THandle&) = delete;
  int Get() const { return FHandle; }
  int Close() {
    const int Old = FHandle;
    FHandle = -1;
    return Old < 0 ? 0 : close(Old);
  }

private:
  int FHandle;
};

/// The file at the end of a chain of links; it need not exist.
std::string FollowLinks(std::string Path) {
  constexpr int MaxLinks = 40; // as the kernel has it
  for (int I = 0; I < MaxLinks; ++I) {
    std::error_code Error;
    if (!fs::is_symlink(Path, Error)) return Path;
    const fs::path Target = fs::read_symlink(Path, Error);
    if (Error) RaiseErrno(u"Cannot follow the link", Path, Error.value());
    Path = Target.is_absolute() ? Target.string() : (fs::path(Path).parent_path() / Target).string();
  }
  RaiseErrno(u"Cannot follow the link", Path, ELOOP);
}

/// A file that is removed again unless it has been renamed to its final place.
class TTemporaryFile {
public:
  TTemporaryFile(std::string Target, mode_t Mode)
      : FTarget(std::move(Target)), FName(NewName(FTarget)),
        FHandle(open(FName.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, Mode)) {
    if (FHandle.Get() < 0) RaiseErrno(u"Cannot be written", FTarget, errno);
    FExists = true;
  }
  ~TTemporaryFile() {
    if (FExists) unlink(FName.c_str());
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
      if (Written < 0) RaiseErrno(u"Cannot be written", FTarget, errno);
      Content.remove_prefix(static_cast<size_t>(Written));
    }
  }

  void Publish() {
    if (fsync(FHandle.Get()) != 0 || FHandle.Close() != 0) RaiseErrno(u"Cannot be written", FTarget, errno);
    if (rename(FName.c_str(), FTarget.c_str()) != 0) RaiseErrno(u"Cannot be replaced", FTarget, errno);
    FExists = false;
  }

private:
  static std::string NewName(const std::string& Target) {
    static std::atomic<unsigned> Counter{0};
    return Target + "." + std::to_string(getpid()) + "-" + std::to_string(++Counter) + ".tmp";
  }

  std::string FTarget;
  std::string FName;
  THandle FHandle;
  bool FExists = false;
};

/// Makes a rename last through a power cut. The new file is in place already, so a failure here is no
/// failure.
void FlushFolder(const std::string& Target) {
  const fs::path Folder = fs::path(Target).parent_path();
  const THandle Handle(open(Folder.empty() ? "." : Folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
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
  const std::string Name = ToUtf8(Path);
  std::error_code Error;
  fs::create_directories(Name, Error);
  std::error_code Ignored;
  if (Error && !fs::is_directory(Name, Ignored)) RaiseErrno(u"Cannot create the folder", Name, Error.value());
}

std::string ReadWholeFile(std::u16string_view Path) {
  const std::string Name = ToUtf8(Path);
  // Without O_NONBLOCK opening a pipe would wait for a writer before it can be refused.
  const THandle Handle(open(Name.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  if (Handle.Get() < 0) RaiseErrno(u"Cannot be read", Name, errno);
  struct stat Info {};
  if (fstat(Handle.Get(), &Info) != 0) RaiseErrno(u"Cannot be read", Name, errno);
  if (!S_ISREG(Info.st_mode)) throw EFileError(u"Cannot be read", Path, u"Not a regular file");
  std::string Content;
  Content.resize(static_cast<size_t>(Info.st_size));
  size_t Used = 0;
  for (;;) {
    if (Used == Content.size()) Content.resize(Used + (Used == static_cast<size_t>(Info.st_size) ? 1 : Used));
    const ssize_t Got = read(Handle.Get(), Content.data() + Used, Content.size() - Used);
    if (Got < 0 && errno == EINTR) continue;
    if (Got < 0) RaiseErrno(u"Cannot be read", Name, errno);
    if (Got == 0) break;
    Used += static_cast<size_t>(Got);
  }
  Content.resize(Used);
  return Content;
}

void WriteWholeFile(std::u16string_view Path, std::string_view Content) {
  const std::string Target = FollowLinks(ToUtf8(Path));
  struct stat Old {};
  const bool Exists = stat(Target.c_str(), &Old) == 0;
  if (Exists && !S_ISREG(Old.st_mode)) throw EFileError(u"Cannot be replaced", Path, u"Not a regular file");
  TTemporaryFile File(Target, 0666);
  if (Exists) File.TakeOwnerAndMode(Old);
  File.Write(Content);
  File.Publish();
  FlushFolder(Target);
}

} // namespace unitlib
