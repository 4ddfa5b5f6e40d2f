// The keys that cancel an extension's work: Command and period.
#pragma once

namespace brvhost {

// Holds them down until they are released. Safe to call from a signal handler.
void HoldCancelKeys();
void ReleaseCancelKeys();

}  // namespace brvhost
