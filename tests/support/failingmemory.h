// Memory that runs out: a program with failingmemory.cpp has an operator new that fails when a test wants it to.
#pragma once

#include <gtest/gtest.h>

// While it exists, a number of allocations succeed, then one fails, then all succeed again.
class FailingMemory {
 public:
  explicit FailingMemory(long successes);
  FailingMemory(const FailingMemory&) = delete;
  FailingMemory& operator=(const FailingMemory&) = delete;
  ~FailingMemory();

  bool HasFailed() const;
};

// The allocations that are not freed yet.
long LiveAllocations();

// Whether an allocation was asked for before the program's own objects were made: by the initialisers of its libraries.
bool MemoryWasNeededToLoad();

// Calls with the first allocation failing, then the second, and so on, until none fails: each time the call must answer
// nothing, at last something, and again something afterwards. The call returns whether it got an answer, and frees
// what it got; what a failed call keeps is a leak.
template <class Call>
void ExpectNothingWhileMemoryRunsOut(Call call) {
  bool failed = true;
  long successes = 0;
  for (; failed && !testing::Test::HasFailure(); ++successes) {
    const long before = LiveAllocations();
    bool answered = false;
    {
      const FailingMemory memory(successes);
      answered = call();
      failed = memory.HasFailed();
    }
    EXPECT_EQ(answered, !failed) << "after " << successes << " allocations";
    EXPECT_TRUE(!failed || LiveAllocations() == before) << "lost after " << successes << " allocations";
  }
  EXPECT_GT(successes, 1) << "it needs no memory";
  EXPECT_TRUE(call());
}

// The call needs no memory, and therefore cannot fail.
template <class Call>
void ExpectNoAllocation(Call call) {
  bool failed = false;
  {
    const FailingMemory memory(0);
    call();
    failed = memory.HasFailed();
  }
  EXPECT_FALSE(failed);
}
