// The facts that --include and --exclude choose.
#pragma once

#include <vector>

#include "host/check/facts.h"
#include "host/commands/options.h"

namespace brvhost {

// In their order. Throws UsageError for what is no regular expression, and where no fact is left.
std::vector<const Fact*> SelectedFacts(const Options& options);

}  // namespace brvhost
