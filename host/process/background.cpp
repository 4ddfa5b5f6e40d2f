#include "host/process/background.h"

#include <atomic>
#include <thread>
#include <utility>

namespace brvhost {
namespace {

std::atomic<int> running = 0;

}  // namespace

void RunInBackground(std::function<void()> work) {
  ++running;
  try {
    std::thread([work = std::move(work)] {
      work();
      --running;
    }).detach();
  } catch (...) {
    --running;
    throw;
  }
}

bool IsAnythingInBackground() { return running > 0; }

}  // namespace brvhost
