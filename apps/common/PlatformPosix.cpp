#include "apps/common/Platform.h"

#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <spawn.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace unitlib::app::platform {
namespace {

/// Name of the file that a signal has to remove; empty when there is none. One at a time is enough.
char PendingPath[PATH_MAX];

extern "C" void RemovePendingFile(int Signal) {
  if (*PendingPath) unlink(PendingPath);
  std::signal(Signal, SIG_DFL);
  raise(Signal);
}

/// Catches a signal unless the caller of the program told it to ignore that one.
void CatchSignal(int Signal) {
  struct sigaction Old {};
  if (sigaction(Signal, nullptr, &Old) != 0 || Old.sa_handler != SIG_DFL) return;
  struct sigaction Action {};
  Action.sa_handler = RemovePendingFile;
  sigemptyset(&Action.sa_mask);
  sigaction(Signal, &Action, nullptr);
}

void SetPendingFile(const std::string& Path) {
  *PendingPath = '\0';
  if (Path.size() >= sizeof PendingPath) return;
  std::memcpy(PendingPath + 1, Path.c_str() + 1, Path.size());
  *PendingPath = Path.front();
  for (const int Signal : {SIGHUP, SIGINT, SIGPIPE, SIGTERM, SIGXFSZ}) CatchSignal(Signal);
}

/// Permissions that a new file of this process gets.
mode_t NewFileMode() {
  const mode_t Mask = umask(0);
  umask(Mask);
  return 0666 & ~Mask;
}

} // namespace

std::vector<std::string> Arguments(int Count, char** Values) {
  return Count > 0 ? std::vector<std::string>(Values + 1, Values + Count) : std::vector<std::string>();
}

std::string Environment(const char* Name) {
  // Read while the program starts, before it has a second thread.
  const char* const Value = std::getenv(Name); // NOLINT(concurrency-mt-unsafe)
  return Value ? Value : "";
}

void PrepareStreams() {
  // The lowest free number is taken, so each call fills exactly the gap. Opened the wrong way round, so that
  // using the stream still fails.
  for (int Number = 0; Number <= 2; ++Number)
    if (fcntl(Number, F_GETFD) < 0 && errno == EBADF &&
        open("/dev/null", Number == 0 ? O_WRONLY : O_RDONLY) < 0)
      errno = 0;
}

int RunProgram(const std::string& Path, const std::vector<std::string>& Arguments) {
  std::vector<char*> Values = {const_cast<char*>(Path.c_str())};
  for (const std::string& Argument : Arguments) Values.push_back(const_cast<char*>(Argument.c_str()));
  Values.push_back(nullptr);
  pid_t Process = 0;
  if (posix_spawn(&Process, Path.c_str(), nullptr, nullptr, Values.data(), environ) != 0) return -1;
  int Status = 0;
  while (waitpid(Process, &Status, 0) < 0)
    if (errno != EINTR) return -1;
  return WIFEXITED(Status) ? WEXITSTATUS(Status) : -1;
}

bool IsTerminal(std::FILE* Stream) {
  return isatty(fileno(Stream)) == 1;
}

std::size_t TerminalWidth(std::FILE* Stream) {
  constexpr std::size_t Default = 80;
  struct winsize Size {};
  return ioctl(fileno(Stream), TIOCGWINSZ, &Size) == 0 && Size.ws_col > 0 ? Size.ws_col : Default;
}

std::FILE* Open(const std::string& Path, const char* Mode) {
  return std::fopen(Path.c_str(), Mode);
}

std::ptrdiff_t ReadSome(std::FILE* Stream, char* Buffer, std::size_t Size) {
  for (;;) {
    const ssize_t Got = read(fileno(Stream), Buffer, Size);
    if (Got >= 0 || errno != EINTR) return Got;
  }
}

std::uint64_t FileSize(std::FILE* Stream) {
  struct stat Info {};
  const bool Known = fstat(fileno(Stream), &Info) == 0 && S_ISREG(Info.st_mode);
  return Known ? static_cast<std::uint64_t>(Info.st_size) : 0;
}

bool IsSpecialFile(const std::string& Path) {
  struct stat Info {};
  return stat(Path.c_str(), &Info) == 0 && !S_ISREG(Info.st_mode);
}

std::string FollowLinks(const std::string& Path) {
  char Resolved[PATH_MAX];
  return realpath(Path.c_str(), Resolved) ? Resolved : Path;
}

std::FILE* CreateTemporary(const std::string& Target, std::string& TemporaryPath) {
  TemporaryPath = Target + ".XXXXXX";
  const int Handle = mkstemp(TemporaryPath.data());
  if (Handle < 0) return nullptr;
  SetPendingFile(TemporaryPath);
  struct stat Old {};
  const mode_t Mode = stat(Target.c_str(), &Old) == 0 ? Old.st_mode & 07777 : NewFileMode();
  std::FILE* Stream = fchmod(Handle, Mode) == 0 ? fdopen(Handle, "wb") : nullptr;
  if (Stream) return Stream;
  const int Code = errno;
  close(Handle);
  Discard(nullptr, TemporaryPath);
  errno = Code;
  return nullptr;
}

bool Publish(std::FILE* Stream, const std::string& TemporaryPath, const std::string& Target) {
  const bool Flushed = std::fflush(Stream) == 0 && fsync(fileno(Stream)) == 0;
  const int Code = errno;
  const bool Closed = std::fclose(Stream) == 0;
  if (!Flushed) errno = Code;
  if (!Flushed || !Closed || std::rename(TemporaryPath.c_str(), Target.c_str()) != 0) return false;
  *PendingPath = '\0';
  return true;
}

void Discard(std::FILE* Stream, const std::string& TemporaryPath) noexcept {
  if (Stream) std::fclose(Stream);
  unlink(TemporaryPath.c_str());
  *PendingPath = '\0';
}

} // namespace unitlib::app::platform
