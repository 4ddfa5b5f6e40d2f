#include "host/process/interrupt.h"

#include <csignal>
#include <initializer_list>

#include "host/process/cancelkeys.h"

namespace brvhost {
namespace {

volatile std::sig_atomic_t interrupts = 0;

void OnInterrupt(int) { interrupts = interrupts + 1; }

void OnEnd(int) { interrupts = 2; }

void OnInterruptOfExtension(int) { HoldCancelKeys(); }

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
