// A host that holds a whole score in frames, ready to return: it does next to nothing itself.
#pragma once

#include <vector>

#include "hostrecords.h"

extern "C" {

// Reads a score; the region is all of it. A score that cannot be read ends the program.
BRV_EXPORT EREGION WalkHostOpenScore(const char* path) noexcept;

// The frames of the score in the order in which the command visits them.
BRV_EXPORT const std::vector<EXTGF2005a*>* WalkHostAllFrames() noexcept;

}  // extern "C"
