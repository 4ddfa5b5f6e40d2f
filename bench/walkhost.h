// A host that holds a whole score in frames, ready to hand out: what it does itself is next to nothing.
#pragma once

#include <vector>

#include "hostrecords.h"

// Reads a score; the region is all of it. Throws what brvhost throws.
using OpenScore = EREGION(const char* path);
inline constexpr const char* kOpenScoreName = "WalkHostOpenScore";

// The frames of the score in the order in which the command visits them.
using AllFrames = const std::vector<EXTGF2005a*>*();
inline constexpr const char* kAllFramesName = "WalkHostAllFrames";
