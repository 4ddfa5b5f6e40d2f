#include "host/process/memoryshortage.h"

#include <atomic>

namespace brvhost {
namespace {

std::atomic<bool> hasRunOut = false;

[[noreturn]] void OnShortage() {
  hasRunOut = true;
  throw std::bad_alloc();
}

}  // namespace

void WatchMemory() {
  hasRunOut = false;
  std::set_new_handler(OnShortage);
}

bool HasMemoryRunOut() { return hasRunOut; }

}  // namespace brvhost
