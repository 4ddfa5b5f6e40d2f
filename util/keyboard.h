// The state of the keyboard at the moment of the call; no event is taken from any queue.
#pragma once

#include "hosttypes.h"

extern "C" {

// Whether a key is down: 1 or 0. Key codes run from 0 to 127; any other is up.
//
// Example: KbdUtilKeyIsDown(53) asks for the Escape key.
BRV_EXPORT int KbdUtilKeyIsDown(char keyCode);

// Whether Command and the period key are both down: the user's wish to cancel.
BRV_EXPORT bool EventUtilCancelInQueue();

}  // extern "C"
