/// The quantities of a small building, read where they lie.
#pragma once

#include "tests/support/Settings.h"

#include <cstdlib>
#include <iostream>
#include <string>

namespace unitlib::takeoff {

/// Path of the file with 377 rows; empty and said so where this machine has none, which fails in CI.
inline std::string SharedBuilding() {
  std::string Path = test::SharedData("building-quantities.csv");
  if (!Path.empty()) return Path;
  const bool MustBePresent = std::getenv("CI") || std::getenv("UNITLIB_REQUIRE_DATA");
  EXPECT_FALSE(MustBePresent)
      << "building-quantities.csv must be present in CI: set UNITLIB_SHARED_DATA to its folder";
  std::cout << "no shared data: building-quantities.csv is not there, the check is skipped\n";
  return Path;
}

} // namespace unitlib::takeoff
