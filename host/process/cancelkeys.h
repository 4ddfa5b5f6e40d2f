// The keys that cancel an extension's work: Command and period.
#pragma once

namespace brvhost {

// Holds them down for the rest of the process's life. Safe to call from a signal handler.
void HoldCancelKeys();

}  // namespace brvhost
