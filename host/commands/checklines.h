// What `check` prints for people. Each line has its end, and is printable.
#pragma once

#include <string>
#include <vector>

#include "host/check/facts.h"
#include "host/check/results.h"

namespace brvhost {

// Of the list of facts.
std::string LineOf(const Fact& fact);
// With the lines below it that explain it; nothing for a fact that was skipped, as the line of the one that it needs
// has that.
std::string LinesOf(const FactResult& result);
std::string SummaryOf(const std::vector<BundleResults>& results);

}  // namespace brvhost
