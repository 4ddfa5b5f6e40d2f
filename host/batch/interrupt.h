// Ctrl-C: extensions see it as Command-period being held.
#pragma once

namespace brvhost {

// How long to wait for anything else at a time, so that an interrupt is seen that comes just before the wait.
inline constexpr int kLongestWaitMs = 100;

// From now on an interrupt, a hang-up or a request to end (SIGTERM, SIGQUIT) is noted instead of ending the process.
void NoteInterrupts();

// From now on, in a process that runs an extension, the first of these also holds Command-period down, and a request to
// end ends the process at once, without what it was writing. Those noted earlier count.
void PressCancelKeysOnInterrupt();

// How many came so far.
int InterruptCount();

}  // namespace brvhost
