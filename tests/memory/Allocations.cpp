#include "tests/memory/Allocations.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace unitlib::test {
namespace {

std::atomic<long> Live{0}, Countdown{0};
std::atomic<bool> Fails{false}, FailsOn{false};

/// True when this allocation is to fail.
bool IsTheOne() noexcept {
  if (Countdown > 0 && --Countdown == 0) {
    Fails = true;
    return true;
  }
  return Fails && FailsOn;
}

} // namespace

void FailAllocation(long Number, bool Lasting) noexcept {
  Fails = false;
  FailsOn = Lasting;
  Countdown = Number;
}

bool StopFailing() noexcept {
  Countdown = 0;
  FailsOn = false;
  return Fails.exchange(false);
}

long LiveBlocks() noexcept {
  return Live;
}

static void* Allocate(std::size_t Size, std::size_t Alignment) {
  void* Block = nullptr;
  if (!IsTheOne())
    Block = Alignment ? std::aligned_alloc(Alignment, (Size + Alignment - 1) / Alignment * Alignment)
                      : std::malloc(Size ? Size : 1);
  if (!Block) throw std::bad_alloc();
  ++Live;
  return Block;
}

static void Free(void* Block) noexcept {
  if (Block) --Live;
  std::free(Block);
}

} // namespace unitlib::test

void* operator new(std::size_t Size) {
  return unitlib::test::Allocate(Size, 0);
}
void* operator new[](std::size_t Size) {
  return unitlib::test::Allocate(Size, 0);
}
void* operator new(std::size_t Size, std::align_val_t Alignment) {
  return unitlib::test::Allocate(Size, static_cast<std::size_t>(Alignment));
}
void* operator new(std::size_t Size, const std::nothrow_t&) noexcept {
  try {
    return unitlib::test::Allocate(Size, 0);
  } catch (...) {
    return nullptr;
  }
}
void operator delete(void* Block) noexcept {
  unitlib::test::Free(Block);
}
void operator delete[](void* Block) noexcept {
  unitlib::test::Free(Block);
}
void operator delete(void* Block, std::size_t) noexcept {
  unitlib::test::Free(Block);
}
void operator delete[](void* Block, std::size_t) noexcept {
  unitlib::test::Free(Block);
}
void operator delete(void* Block, std::align_val_t) noexcept {
  unitlib::test::Free(Block);
}
void operator delete(void* Block, std::size_t, std::align_val_t) noexcept {
  unitlib::test::Free(Block);
}
void operator delete(void* Block, const std::nothrow_t&) noexcept {
  unitlib::test::Free(Block);
}
