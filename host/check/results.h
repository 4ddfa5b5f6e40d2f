// What came out of checks.
#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <vector>

#include "host/check/facts.h"

namespace brvhost {

enum class Outcome { kHolds, kNote, kWarning, kError, kSkipped };

// The outcome of a fact that does not hold.
Outcome OutcomeOf(Severity severity);

struct FactResult {
  const Fact* fact = nullptr;
  Outcome outcome = Outcome::kHolds;
  std::string message;    // what went wrong, or why it was skipped; empty where it holds
  std::string reproduce;  // a command that runs it in a debugger, where its process did not end by itself
  std::chrono::milliseconds duration{};
};

struct BundleResults {
  std::string bundle;
  std::vector<FactResult> facts;
};

struct OutcomeCounts {
  std::size_t facts = 0;
  std::size_t holding = 0;
  std::size_t errors = 0;
  std::size_t warnings = 0;
  std::size_t notes = 0;
  std::size_t skipped = 0;
};

OutcomeCounts CountsOf(const BundleResults& results);
OutcomeCounts CountsOf(const std::vector<BundleResults>& results);

// With `strict`, a warning fails a bundle, too.
bool Fails(const OutcomeCounts& counts, bool strict);

}  // namespace brvhost
