#include "host/process/interrupt.h"

#include <unistd.h>

#include <csignal>
#include <initializer_list>

#include "host/process/cancelkeys.h"
#include "host/process/exitstatus.h"

namespace brvhost {
namespace {

volatile std::sig_atomic_t interrupts = 0;
void (*cleanUpAtEnd)() = nullptr;

void OnInterrupt(int) { interrupts = interrupts + 1; }

void OnInterruptOfExtension(int) {
  interrupts = interrupts + 1;
  HoldCancelKeys();
}

void OnEndOfExtension(int) {
  cleanUpAtEnd();
  _exit(kInterrupted);
}

void Handle(int signal, void (*handler)(int)) {
  struct sigaction action = {};
  action.sa_handler = handler;
  action.sa_flags = SA_RESTART;
  sigaction(signal, &action, nullptr);
}

}  // namespace

void CountInterrupts() {
  for (const int signal : {SIGINT, SIGHUP, SIGTERM, SIGQUIT}) Handle(signal, OnInterrupt);
}

void PressCancelKeysOnInterrupt(void (*cleanUp)()) {
  cleanUpAtEnd = cleanUp;
  Handle(SIGINT, OnInterruptOfExtension);
  Handle(SIGHUP, OnInterruptOfExtension);
  Handle(SIGTERM, OnEndOfExtension);
  Handle(SIGQUIT, OnEndOfExtension);
  if (interrupts > 0) HoldCancelKeys();
}

int InterruptCount() { return interrupts; }

}  // namespace brvhost
