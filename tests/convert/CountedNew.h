/// Counts what is taken from the heap. The program that links it has its operator new replaced.
#pragma once

namespace unitlib::test {

/// Allocations of the calling thread since its start.
int AllocationCount() noexcept;

} // namespace unitlib::test
