/// A file of its own, so that the compiler does not look from a call of new into malloc.
#include "tests/convert/CountedNew.h"

#include <cstdlib>
#include <new>

namespace {
thread_local int Allocations = 0;
}

void* operator new(std::size_t Size) {
  ++Allocations;
  if (void* Memory = std::malloc(Size > 0 ? Size : 1)) return Memory;
  throw std::bad_alloc();
}
void* operator new[](std::size_t Size) {
  return ::operator new(Size);
}
void operator delete(void* Memory) noexcept {
  std::free(Memory);
}
void operator delete(void* Memory, std::size_t) noexcept {
  std::free(Memory);
}
void operator delete[](void* Memory) noexcept {
  std::free(Memory);
}
void operator delete[](void* Memory, std::size_t) noexcept {
  std::free(Memory);
}

int unitlib::test::AllocationCount() noexcept {
  return Allocations;
}
