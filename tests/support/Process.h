/// A program run in a process of its own: what it says and how it ends.
#pragma once

#include <string>
#include <vector>

namespace unitlib::test {

struct TProcessResult {
  int Status = -1; // exit status; 128 + signal when killed by one
  std::string Out, Err;
};

/// Limits of the process; 0: none.
struct TProcessLimits {
  unsigned long StackBytes = 0;
  unsigned long CpuSeconds = 0;
};

/// Runs Command (a path and its arguments) to its end. Environment: added lines "NAME=value".
TProcessResult RunProcess(const std::vector<std::string>& Command, const TProcessLimits& Limits = {},
                          const std::vector<std::string>& Environment = {});

/// Lines of a text without their ends.
std::vector<std::string> Lines(const std::string& Text);

/// True in a build with sanitizers, whose own memory would be measured with the library's.
bool HasSanitizer() noexcept;

} // namespace unitlib::test
