#include <pthread.h>
#include <sys/mman.h>
#include <unistd.h>

#include <atomic>
#include <new>

#include "extension.h"

namespace {

constexpr int kTogether = 400;

std::atomic<int>& Workers() {
  void* const shared = mmap(nullptr, sizeof(int), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  return *new (shared) std::atomic<int>(0);
}

// So far.
std::atomic<int>& workers = Workers();

void CountWorker() {
  ++workers;
  usleep(1000);  // so that brvhost is ahead of the process that starts them
}

void WaitForOthers() {
  while (workers < kTogether) usleep(1000);
}

[[maybe_unused]] const int registered = pthread_atfork(nullptr, CountWorker, WaitForOthers);

}  // namespace

// The first of the workers do nothing until there are many, and then go on at the same time.
int BrevixExtensionInvoke(void*, int index, EREGION* region, EREGION*) {
  return index == 0 && region != nullptr ? HideFirstFrame(*region) : 0;
}
