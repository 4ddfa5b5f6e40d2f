// Ctrl-C: extensions see it as Command-period being held.
#pragma once

namespace brvhost {

// The longest that anything waits at a time, so that an interrupt that arrived just before is noticed soon.
inline constexpr int kMaxWaitMs = 100;

// From now on an interrupt, a hang-up or a request to end (SIGTERM, SIGQUIT) is counted instead of ending the process.
void CountInterrupts();

// For a process that runs an extension: from now on an interrupt or a hang-up also holds Command-period down, and a
// request to end calls `cleanUp`, which must be safe in a signal handler, and ends the process at once. If any was
// counted before, the keys are held down at once.
void PressCancelKeysOnInterrupt(void (*cleanUp)());

// How many there have been so far.
int InterruptCount();

}  // namespace brvhost
