/// A literal reader of comma-separated values: one byte after the other, everything in memory.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace unitlib::fuzz::slow {

struct TRecord {
  std::vector<std::string> Fields;
  std::string Raw, LineEnd;
  std::uint64_t Line = 1;
  bool OpenQuote = false;
  bool WellFormed = true;
};

std::vector<TRecord> ReadCsv(std::string_view Bytes);

} // namespace unitlib::fuzz::slow
