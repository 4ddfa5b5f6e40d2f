// The state of the keyboard at the time of the call. No event is taken from any queue.
#pragma once

#include "hosttypes.h"

extern "C" {

// Returns 1 if a key is down, else 0. Key codes are 0 to 127; for any other the result is 0.
//
// Example: KbdUtilKeyIsDown(53) checks the Escape key.
BRV_EXPORT int KbdUtilKeyIsDown(char keyCode);

// Returns whether Command and the period key are both down, by which the user cancels a command.
BRV_EXPORT bool EventUtilCancelInQueue();

}  // extern "C"
