// Ctrl-C: extensions see it as Command-period being held.
#pragma once

namespace brvhost {

// From now on an interrupt, a hang-up or a request to end is noted instead of ending the process.
void NoteInterrupts();

// From now on, in a process that runs an extension, the first of these also holds Command-period down, and a request to
// end (SIGTERM) ends the process at once, without what it was writing. Those noted earlier count.
void PressCancelKeysOnInterrupt();

// How many came so far.
int InterruptCount();

}  // namespace brvhost
