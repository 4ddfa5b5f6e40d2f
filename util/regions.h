// The current selection.
#pragma once

#include "hostrecords.h"
#include "hosttypes.h"

extern "C" {

// Asks the host for the selected regions. Either record may be null. Returns the host's result.
BRV_EXPORT short16 GetRegions(EREGION* first, EREGION* second);

}  // extern "C"
