/// Runs unitctl inside the test program, with a settings file of its own.
#pragma once

#include "tests/support/Settings.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace unitlib::test {

struct TRunResult {
  int Status = -1;
  std::string Out;
  std::string Err;
};

/// Runs one command; Input is its standard input.
TRunResult RunCommand(const std::vector<std::string>& Arguments, const std::string& Input = {});

/// Factory settings beside the program, with "US Imperial System" chosen.
class TUnitctl : public ::testing::Test {
protected:
  TUnitctl();

  std::string Path(const std::string& Name) const { return (Folders.Root() / Name).string(); }
  /// Writes a file into the test's folder and returns its path.
  std::string WriteFile(const std::string& Name, std::string_view Content) const;
  std::string ReadFile(const std::string& Name) const;
  bool Exists(const std::string& Name) const { return std::filesystem::exists(Folders.Root() / Name); }

  TPrivateFolders Folders;
};

/// Standard output of a command that succeeds.
std::string OutputOf(const std::vector<std::string>& Arguments, const std::string& Input = {});

} // namespace unitlib::test
