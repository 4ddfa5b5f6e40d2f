// The region of a score that an extension works on, in JSON.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "BrvEDK/Source/hostrecords.h"

namespace brvhost {

// A list of its blocks, or null where nothing is selected. `layers`, from 0, are those that are shown; all when empty.
std::string JsonOfRegion(const std::optional<EREGION>& region, const std::vector<int>& layers);

}  // namespace brvhost
