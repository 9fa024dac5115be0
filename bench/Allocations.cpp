/// The C library's allocator under its public names, with a count before it.
#include "bench/Allocations.h"

#include <cstddef>

extern "C" {
void* __libc_malloc(std::size_t Size);
void* __libc_calloc(std::size_t Count, std::size_t Size);
void* __libc_realloc(void* Memory, std::size_t Size);
}

namespace {
thread_local std::uint64_t Count = 0;
}

extern "C" {
void* malloc(std::size_t Size) {
  ++Count;
  return __libc_malloc(Size);
}
void* calloc(std::size_t Items, std::size_t Size) {
  ++Count;
  return __libc_calloc(Items, Size);
}
void* realloc(void* Memory, std::size_t Size) {
  ++Count;
  return __libc_realloc(Memory, Size);
}
}

namespace unitlib::bench {

std::uint64_t AllocationCount() noexcept {
  return Count;
}

} // namespace unitlib::bench
