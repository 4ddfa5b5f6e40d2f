#include "host/process/background.h"

#include <atomic>
#include <system_error>
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
  } catch (const std::system_error& error) {
    --running;
    throw std::system_error(error.code(), "thread");
  } catch (...) {
    --running;
    throw;
  }
}

bool IsAnythingInBackground() { return running > 0; }

}  // namespace brvhost
