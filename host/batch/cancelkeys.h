// The keys that cancel an extension's work: Command and period.
#pragma once

namespace brvhost {

// They are held from now on, for the life of the process. Safe to call from a signal handler.
void HoldCancelKeys();

}  // namespace brvhost
