#include <csignal>

#include <unistd.h>

#include "host/batch/cancelkeys.h"
#include "host/batch/exitstatus.h"
#include "host/batch/interrupt.h"
#include "host/files/safefile.h"

namespace brvhost {
namespace {

volatile std::sig_atomic_t interrupts = 0;

void OnInterrupt(int) { interrupts = interrupts + 1; }

void OnInterruptOfExtension(int) {
  interrupts = interrupts + 1;
  HoldCancelKeys();
}

void OnEndOfExtension(int) {
  RemoveUnfinishedFile();
  _exit(kInterrupted);
}

void Handle(int signal, void (*handler)(int)) {
  struct sigaction action = {};
  action.sa_handler = handler;
  action.sa_flags = SA_RESTART;
  sigaction(signal, &action, nullptr);
}

}  // namespace

void NoteInterrupts() {
  for (const int signal : {SIGINT, SIGHUP, SIGTERM, SIGQUIT}) Handle(signal, OnInterrupt);
}

void PressCancelKeysOnInterrupt() {
  Handle(SIGINT, OnInterruptOfExtension);
  Handle(SIGHUP, OnInterruptOfExtension);
  Handle(SIGTERM, OnEndOfExtension);
  Handle(SIGQUIT, OnEndOfExtension);
  if (interrupts > 0) HoldCancelKeys();
}

int InterruptCount() { return interrupts; }

}  // namespace brvhost
