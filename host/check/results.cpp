#include "host/check/results.h"

#include <algorithm>

namespace brvhost {
namespace {

std::size_t Count(const BundleResults& results, Outcome outcome) {
  return static_cast<std::size_t>(std::ranges::count(results.facts, outcome, &FactResult::outcome));
}

}  // namespace

Outcome OutcomeOf(Severity severity) {
  switch (severity) {
    case Severity::kNote:
      return Outcome::kNote;
    case Severity::kWarning:
      return Outcome::kWarning;
    default:
      return Outcome::kError;
  }
}

OutcomeCounts CountsOf(const BundleResults& results) {
  return {results.facts.size(),
          Count(results, Outcome::kHolds),
          Count(results, Outcome::kError),
          Count(results, Outcome::kWarning),
          Count(results, Outcome::kNote),
          Count(results, Outcome::kSkipped)};
}

OutcomeCounts CountsOf(const std::vector<BundleResults>& results) {
  OutcomeCounts all;
  for (const BundleResults& bundle : results) {
    const OutcomeCounts counts = CountsOf(bundle);
    all.facts += counts.facts;
    all.holding += counts.holding;
    all.errors += counts.errors;
    all.warnings += counts.warnings;
    all.notes += counts.notes;
    all.skipped += counts.skipped;
  }
  return all;
}

bool Fails(const OutcomeCounts& counts, bool strict) { return counts.errors > 0 || (strict && counts.warnings > 0); }

}  // namespace brvhost
