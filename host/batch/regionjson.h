// The region of a score that an extension works on, in JSON.
#pragma once

#include <string>
#include <vector>

#include "host/score/region.h"

namespace brvhost {

// A list of its blocks, or null where nothing is selected.
std::string JsonOfRegion(const std::vector<Block>& blocks);

}  // namespace brvhost
