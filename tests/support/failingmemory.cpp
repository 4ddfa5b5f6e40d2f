#include "failingmemory.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

constexpr long kNeverFail = -1;

// Everything below is set before any code runs: libraries allocate before this program's own initialisers.
std::atomic<long> successesLeft{kNeverFail};
std::atomic<bool> hasFailed{false};
std::atomic<long> live{0};
std::atomic<long> allAllocations{0};

long allocationsToLoad = -1;

// The first of this program's own initialisers.
__attribute__((constructor(101))) void CountAllocationsToLoad() { allocationsToLoad = allAllocations; }

void* Allocate(std::size_t size) noexcept {
  ++allAllocations;
  const long left = successesLeft;
  if (left == 0) {
    successesLeft = kNeverFail;
    hasFailed = true;
    return nullptr;
  }
  if (left > 0) successesLeft = left - 1;
  ++live;
  return std::malloc(size == 0 ? 1 : size);
}

void* AllocateOrThrow(std::size_t size) {
  void* const memory = Allocate(size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

void Free(void* memory) noexcept {
  if (memory == nullptr) return;
  --live;
  std::free(memory);
}

}  // namespace

FailingMemory::FailingMemory(long successes) {
  hasFailed = false;
  successesLeft = successes;
}

FailingMemory::~FailingMemory() { successesLeft = kNeverFail; }

bool FailingMemory::HasFailed() const { return hasFailed; }

long LiveAllocations() { return live; }

bool MemoryWasNeededToLoad() { return allocationsToLoad != 0; }

#define EXPORTED __attribute__((visibility("default")))

EXPORTED void* operator new(std::size_t size) { return AllocateOrThrow(size); }
EXPORTED void* operator new[](std::size_t size) { return AllocateOrThrow(size); }
EXPORTED void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return Allocate(size); }
EXPORTED void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return Allocate(size); }
EXPORTED void operator delete(void* memory) noexcept { Free(memory); }
EXPORTED void operator delete[](void* memory) noexcept { Free(memory); }
EXPORTED void operator delete(void* memory, std::size_t) noexcept { Free(memory); }
EXPORTED void operator delete[](void* memory, std::size_t) noexcept { Free(memory); }
EXPORTED void operator delete(void* memory, const std::nothrow_t&) noexcept { Free(memory); }
EXPORTED void operator delete[](void* memory, const std::nothrow_t&) noexcept { Free(memory); }
