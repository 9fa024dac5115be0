/// Compares the fast paths with the literal way on all processors.
///   unitlib_nightly COUNT SEED      exit status 1 when anything differs
#include "tests/nightly/FastPathComparison.h"

#include <cstdio>
#include <cstdlib>
#include <thread>
#include <vector>

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: unitlib_nightly COUNT SEED\n");
    return 2;
  }
  const std::uint64_t Count = std::strtoull(argv[1], nullptr, 10), Seed = std::strtoull(argv[2], nullptr, 10);
  const unsigned Threads = std::max(1U, std::thread::hardware_concurrency());
  std::vector<unitlib::test::TComparison> Results(Threads);
  std::vector<std::thread> Running;
  for (unsigned I = 0; I < Threads; ++I)
    Running.emplace_back(
        [&, I] { Results[I] = unitlib::test::CompareFastPaths(Count / Threads + 1, Seed * 1000 + I); });
  std::uint64_t Compared = 0, Different = 0;
  for (unsigned I = 0; I < Threads; ++I) {
    Running[I].join();
    Compared += Results[I].Count;
    Different += Results[I].Different;
    if (!Results[I].First.empty()) std::fprintf(stderr, "%s\n", Results[I].First.c_str());
  }
  std::printf("%llu values compared, %llu different\n", static_cast<unsigned long long>(Compared),
              static_cast<unsigned long long>(Different));
  return Different == 0 ? 0 : 1;
}
