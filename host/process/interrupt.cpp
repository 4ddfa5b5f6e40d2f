#include "host/process/interrupt.h"

#include <atomic>
#include <csignal>
#include <initializer_list>

#include "host/process/cancelkeys.h"

namespace brvhost {
namespace {

// Counted by handlers on any thread, and read by all.
std::atomic<int> interrupts = 0;
static_assert(std::atomic<int>::is_always_lock_free);

void OnInterrupt(int) { ++interrupts; }

void OnEnd(int) { interrupts = 2; }

void OnInterruptOfExtension(int) {
  ++interrupts;
  HoldCancelKeys();
}

void Handle(int signal, void (*handler)(int)) {
  struct sigaction action = {};
  action.sa_handler = handler;
  action.sa_flags = SA_RESTART;
  sigaction(signal, &action, nullptr);
}

bool IsIgnored(int signal) {
  struct sigaction action = {};
  return sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

}  // namespace

void CountInterrupts() {
  if (!IsIgnored(SIGINT)) Handle(SIGINT, OnInterrupt);
  for (const int signal : {SIGHUP, SIGTERM, SIGQUIT}) {
    if (!IsIgnored(signal)) Handle(signal, OnEnd);
  }
}

void PressCancelKeysOnInterrupt() { Handle(SIGINT, OnInterruptOfExtension); }

int InterruptCount() { return interrupts; }

}  // namespace brvhost
