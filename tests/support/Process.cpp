#include "tests/support/Process.h"

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace unitlib::test {
namespace {

using TFile = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

TFile TemporaryFile() {
  TFile File(std::tmpfile(), std::fclose);
  if (!File) throw std::runtime_error("no temporary file");
  return File;
}

std::string Content(std::FILE* File) {
  std::rewind(File);
  std::string Result;
  char Buffer[4096];
  while (const std::size_t Got = std::fread(Buffer, 1, sizeof Buffer, File)) Result.append(Buffer, Got);
  return Result;
}

void Limit(int Resource, unsigned long Value) {
  if (Value == 0) return;
  const rlimit Both{Value, Value};
  setrlimit(static_cast<__rlimit_resource>(Resource), &Both);
}

/// Replaces the child by the program. Only what is allowed between fork and exec.
[[noreturn]] void BecomeProgram(char* const* Arguments, char* const* Environment,
                                const TProcessLimits& Limits, int Out, int Err) {
  dup2(Out, STDOUT_FILENO);
  dup2(Err, STDERR_FILENO);
  Limit(RLIMIT_STACK, Limits.StackBytes);
  Limit(RLIMIT_CPU, Limits.CpuSeconds);
  execve(Arguments[0], Arguments, Environment);
  _exit(127);
}

std::vector<char*> Pointers(std::vector<std::string>& Texts) {
  std::vector<char*> Result;
  for (std::string& Text : Texts) Result.push_back(Text.data());
  Result.push_back(nullptr);
  return Result;
}

} // namespace

TProcessResult RunProcess(const std::vector<std::string>& Command, const TProcessLimits& Limits,
                          const std::vector<std::string>& Environment) {
  const TFile Out = TemporaryFile(), Err = TemporaryFile();
  std::vector<std::string> Arguments = Command, Variables = Environment;
  for (char** I = environ; *I; ++I) Variables.emplace_back(*I);
  const std::vector<char*> ArgumentList = Pointers(Arguments), VariableList = Pointers(Variables);
  const pid_t Child = fork();
  if (Child < 0) throw std::runtime_error("no process");
  if (Child == 0)
    BecomeProgram(ArgumentList.data(), VariableList.data(), Limits, fileno(Out.get()), fileno(Err.get()));
  int Ended = 0;
  if (waitpid(Child, &Ended, 0) != Child) throw std::runtime_error("the process is lost");
  TProcessResult Result;
  Result.Status = WIFEXITED(Ended) ? WEXITSTATUS(Ended) : 128 + WTERMSIG(Ended);
  Result.Out = Content(Out.get());
  Result.Err = Content(Err.get());
  return Result;
}

std::vector<std::string> Lines(const std::string& Text) {
  std::istringstream Stream(Text);
  std::vector<std::string> Result;
  for (std::string Line; std::getline(Stream, Line);) Result.push_back(Line);
  return Result;
}

bool HasSanitizer() noexcept {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
  return true;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
  return true;
#else
  return false;
#endif
#else
  return false;
#endif
}

} // namespace unitlib::test
