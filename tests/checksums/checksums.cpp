/// One checksum per family over the library's answers to generated cases; two builds must print the same.
///   unitlib_checksums [--seed N] [--print FAMILY] [--float-state X87 MXCSR]
///   unitlib_checksums --check       the sums do not depend on the run
/// X87 and MXCSR are the control words (hexadecimal) of a host that has changed them: the sums stay the same.
#include "Cases.h"

#include <algorithm>
#include <cinttypes>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <vector>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#endif

namespace checksums {
namespace {

struct TOptions {
  uint64_t Seed = 1;
  std::string Print;
  bool Check = false, SetState = false;
  uint16_t X87 = 0;
  uint32_t Sse = 0;
};

[[noreturn]] void Usage() {
  std::cerr << "unitlib_checksums [--seed N] [--print FAMILY] [--float-state X87 MXCSR] | --check\n";
  std::exit(2);
}

TOptions ReadOptions(int Count, char** Arguments) {
  TOptions Options;
  for (int I = 1; I < Count; ++I) {
    const std::string_view Name = Arguments[I];
    const auto Next = [&] { return ++I < Count ? Arguments[I] : (Usage(), nullptr); };
    if (Name == "--seed") {
      Options.Seed = std::strtoull(Next(), nullptr, 10);
    } else if (Name == "--print") {
      Options.Print = Next();
    } else if (Name == "--check") {
      Options.Check = true;
    } else if (Name == "--float-state") {
      Options.SetState = true;
      Options.X87 = static_cast<uint16_t>(std::strtoul(Next(), nullptr, 16));
      Options.Sse = static_cast<uint32_t>(std::strtoul(Next(), nullptr, 16));
    } else {
      Usage();
    }
  }
  return Options;
}

void SetFloatState([[maybe_unused]] const TOptions& Options) {
#if defined(__x86_64__) || defined(__i386__)
  asm volatile("fldcw %0" : : "m"(Options.X87) : "memory");
  asm volatile("ldmxcsr %0" : : "m"(Options.Sse) : "memory");
#else
  std::cerr << "unitlib_checksums: --float-state is for x86\n";
  std::exit(2);
#endif
}

/// Each family starts from the factory settings with a generator of its own, so that one can be run alone.
TResults RunFamily(const TFamily& Family, uint64_t Seed, bool Print, int Count) {
  const TSettings Settings;
  TResults Results(Print);
  TRandom Random(Seed);
  for (const char* Letter = Family.Name; *Letter; ++Letter)
    Random = TRandom(Random.Next() + static_cast<unsigned char>(*Letter));
  for (int I = 0; I < Count; ++I) {
    Family.Run(Random, Results);
    Results.EndCase();
  }
  return Results;
}

/// Two runs agree, another seed does not (a part of the cases tells), and there are as many cases as
/// promised.
int Check() {
  int Total = 0;
  for (int I = 0; I < FamilyCount; ++I) {
    const TFamily& Family = Families[I];
    Total += Family.Count;
    const int Part = std::max(Family.Count / 20, 2);
    const uint64_t Sum = RunFamily(Family, 1, false, Part).Sum();
    if (Sum == RunFamily(Family, 1, false, Part).Sum() && Sum != RunFamily(Family, 2, false, Part).Sum())
      continue;
    std::cerr << "the checksum of " << Family.Name << " is not one of its cases\n";
    return 1;
  }
  std::cout << Total << " cases\n";
  return Total >= 100000 ? 0 : 1;
}

int Run(const TOptions& Options) {
  int64_t Total = 0;
  bool Found = false;
  for (int I = 0; I < FamilyCount; ++I) {
    const TFamily& Family = Families[I];
    if (!Options.Print.empty() && Options.Print != Family.Name) continue;
    Found = true;
    const TResults Results = RunFamily(Family, Options.Seed, !Options.Print.empty(), Family.Count);
    Total += Results.Count();
    if (Options.Print.empty())
      std::printf("%-18s %6" PRId64 " cases  %016" PRIx64 "\n", Family.Name, Results.Count(), Results.Sum());
  }
  if (!Found) Usage();
  if (Options.Print.empty())
    std::printf("%-18s %6" PRId64 " cases, seed %" PRIu64 "\n", "total", Total, Options.Seed);
  return 0;
}

} // namespace
} // namespace checksums

int main(int Count, char** Arguments) {
#ifdef _WIN32
  _setmode(_fileno(stdout), _O_BINARY); // the same bytes on every platform
#endif
  const checksums::TOptions Options = checksums::ReadOptions(Count, Arguments);
  if (Options.SetState) checksums::SetFloatState(Options);
  return Options.Check ? checksums::Check() : checksums::Run(Options);
}
