// The command behind both menu items.
#pragma once

#include "hostrecords.h"
#include "hosttypes.h"

extern "C" {

// Hides (variant 0) or shows (any other) the ledger lines of every entry inside the region, in each shown layer, and
// saves the frames in which an entry changed. Returns 1 if a frame was saved, else 0. The user can cancel with
// Command-period; what was saved until then stays.
short16 DoShowLegerLines(EREGION* region, short16 variant);

}  // extern "C"
