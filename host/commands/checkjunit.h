// What `check` reports, in the XML that systems for continuous integration read: a suite for each bundle, with a test
// for each fact.
#pragma once

#include <string>
#include <vector>

#include "host/check/results.h"

namespace brvhost {

// With `strict`, a warning is a failure, too.
std::string JUnitOf(const std::vector<BundleResults>& results, bool strict);

}  // namespace brvhost
