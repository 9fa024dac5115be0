/// What holds for every typed text, checked on generated ones.
#pragma once

#include "tests/typing/TypedTexts.h"

#include <cstdint>

namespace unitlib::test {

struct TPropertyCounts {
  std::uint64_t Texts = 0;
  std::uint64_t Read = 0;
  std::uint64_t ReadByFacade = 0;
  std::uint64_t ShownBack = 0;
  std::uint64_t Failures = 0;
};

/// Reads Count texts in all fields, kinds and formats. Failures are told to Report, at most 20 of them.
/// The factory settings are loaded.
TPropertyCounts CheckProperties(std::uint64_t Count, std::uint64_t Seed, void (*Report)(const std::string&));

} // namespace unitlib::test
