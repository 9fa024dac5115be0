/// Compares what the library shows and reads with the literal way, over random and adversarial values: ties
/// and their neighbours, carries, borders of 15 digits, every increment and every factor.
#pragma once

#include <cstdint>
#include <string>

namespace unitlib::test {

struct TComparison {
  std::uint64_t Count = 0;     // values compared
  std::uint64_t Different = 0; // of them
  std::string First;           // the first difference, with everything that is needed to repeat it
};

/// Threads: any number of comparisons may run at the same time.
TComparison CompareFastPaths(std::uint64_t Count, std::uint64_t Seed);

} // namespace unitlib::test
