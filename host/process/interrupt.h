// Ctrl-C: extensions see it as Command-period being held.
#pragma once

namespace brvhost {

// The longest that anything waits at a time, so that an interrupt that arrived just before is noticed soon.
inline constexpr int kMaxWaitMs = 100;

// From now on an interrupt is counted instead of ending the process; a hang-up or a request to end (SIGTERM, SIGQUIT)
// counts as the second. Signals that are ignored, as under nohup, stay so.
void CountInterrupts();

// For a process that runs an extension: from now on an interrupt is counted and holds Command-period down.
void PressCancelKeysOnInterrupt();

// How many there have been so far.
int InterruptCount();

}  // namespace brvhost
