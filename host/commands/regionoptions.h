// The options that select what an extension works on.
#pragma once

#include "host/commands/options.h"
#include "host/process/terminal.h"
#include "host/score/region.h"

namespace brvhost {

// What these options ask for. Throws UsageError for what can be no region of any score.
RegionRequest RegionOptions(const Options& options);

// Throws UsageError where nothing is selected and no question can be answered: an extension that asks whether it may
// work on the whole score would do nothing.
void CheckSelection(const RegionRequest& region, const Options& options, const Terminal& terminal);

}  // namespace brvhost
