// Ctrl-C: extensions see it as Command-period being held.
#pragma once

namespace brvhost {

// The longest wait for anything else at a time, so that an interrupt just before the wait is seen soon.
inline constexpr int kMaxWaitMs = 100;

// From now on an interrupt, a hang-up or a request to end (SIGTERM, SIGQUIT) is counted instead of ending the process.
void CountInterrupts();

// From now on, in a process that runs an extension, the first of these also holds Command-period down, and a request to
// end calls `cleanUp`, which must be safe in a signal handler, and ends the process at once. Those counted earlier
// count.
void PressCancelKeysOnInterrupt(void (*cleanUp)());

// How many there have been so far.
int InterruptCount();

}  // namespace brvhost
