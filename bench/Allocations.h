/// Counts what is taken from the heap, by C and C++ alike.
#pragma once

#include <cstdint>

namespace unitlib::bench {

/// Allocations of the calling thread since its start.
std::uint64_t AllocationCount() noexcept;

} // namespace unitlib::bench
