/// Runs a target over kept inputs, without libFuzzer: unitlib_fuzz_replay TARGET FILE_OR_FOLDER...
/// The name of each input is known before it runs, so that a crash names it.
#include "fuzz/Targets.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <csignal>
#include <unistd.h>

namespace {

std::string Running; // the input that runs now

extern "C" void NameInput(int Signal) {
  constexpr std::string_view Head = "\nthe input is ";
  const auto Write = [](std::string_view Text) {
    if (write(STDERR_FILENO, Text.data(), Text.size()) < 0) _exit(1);
  };
  Write(Head);
  Write(Running);
  Write("\n");
  std::signal(Signal, SIG_DFL);
  std::raise(Signal);
}

std::vector<std::filesystem::path> FilesOf(const std::filesystem::path& Place) {
  std::vector<std::filesystem::path> Files;
  if (!std::filesystem::exists(Place)) return Files;
  if (!std::filesystem::is_directory(Place)) return {Place};
  for (const auto& Entry : std::filesystem::directory_iterator(Place))
    if (Entry.is_regular_file()) Files.push_back(Entry.path());
  std::sort(Files.begin(), Files.end());
  return Files;
}

void Run(const unitlib::fuzz::TTarget& Target, const std::filesystem::path& File) {
  std::ifstream Stream(File, std::ios::binary);
  const std::string Bytes((std::istreambuf_iterator<char>(Stream)), std::istreambuf_iterator<char>());
  Running = File.string();
  unitlib::fuzz::TInput Input(reinterpret_cast<const std::uint8_t*>(Bytes.data()), Bytes.size());
  Target.Run(Input);
}

} // namespace

int main(int Count, char** Arguments) {
  const unitlib::fuzz::TTarget* Target = Count > 2 ? unitlib::fuzz::FindTarget(Arguments[1]) : nullptr;
  if (!Target) {
    std::fprintf(stderr, "Use: unitlib_fuzz_replay TARGET FILE_OR_FOLDER..., with one of\n");
    unitlib::fuzz::ListTargets();
    return 2;
  }
  for (const int Signal : {SIGABRT, SIGSEGV, SIGFPE, SIGILL}) std::signal(Signal, NameInput);
  std::size_t Done = 0;
  for (int I = 2; I < Count; ++I)
    for (const auto& File : FilesOf(Arguments[I])) {
      Run(*Target, File);
      ++Done;
    }
  if (Done == 0) {
    std::fprintf(stderr, "%s: no inputs to run\n", Target->Name);
    return 1;
  }
  std::printf("%s: %zu inputs, no difference\n", Target->Name, Done);
  return 0;
}
