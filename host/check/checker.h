// Checks a bundle, fact by fact.
#pragma once

#include <functional>
#include <vector>

#include "host/calls/trace.h"
#include "host/check/facts.h"
#include "host/check/results.h"

namespace brvhost {

struct CheckSettings {
  int seconds = 10;        // for each fact
  bool confines = true;    // the process of each fact
  bool inProcess = false;  // in this one, without a limit of time, neither confined nor silenced
  Trace* trace = nullptr;  // of all calls, under the names of the facts
};

// Throws std::runtime_error where the system cannot confine an extension.
void ExpectConfinement(const CheckSettings& settings);

// `report` gets each result when it is there.
BundleResults CheckBundle(const Subject& subject, const std::vector<const Fact*>& facts, const CheckSettings& settings,
                          const std::function<void(const FactResult&)>& report);

}  // namespace brvhost
