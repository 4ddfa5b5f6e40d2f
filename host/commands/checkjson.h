// What `check` reports, in JSON.
#pragma once

#include <string>

#include "host/check/facts.h"
#include "host/check/results.h"

namespace brvhost {

// Of the list of facts.
std::string JsonOf(const Fact& fact);
std::string JsonOf(const std::string& bundle, const FactResult& result);
std::string JsonOf(const BundleResults& results, bool strict);

}  // namespace brvhost
