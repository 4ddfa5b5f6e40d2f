// The region of a score that an extension works on, in JSON.
#pragma once

#include <string>
#include <vector>

#include "host/score/numberruns.h"
#include "host/score/region.h"

namespace brvhost {

std::string JsonOfRun(const NumberRun& run);

// A list of its blocks, or null where nothing is selected.
std::string JsonOfRegion(const std::vector<Block>& blocks);

}  // namespace brvhost
