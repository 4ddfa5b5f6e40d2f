// The command of both menu items.
#pragma once

#include "hostrecords.h"
#include "hosttypes.h"

extern "C" {

// Hides (variant 0) or shows (any other variant) the ledger lines of every entry in the region, in each layer that is
// shown, and saves the frames in which an entry changed. Returns 1 if a frame was saved, else 0; whether the host took
// it is not looked at. A frame that does not load is passed over. The user can cancel with Command-period; what has
// been saved by then stays.
short16 DoShowLegerLines(EREGION* region, short16 variant);

}  // extern "C"
