#include "host/commands/checkjson.h"

#include <cstdint>

#include "host/text/json.h"

namespace brvhost {
namespace {

const char* WordOf(Outcome outcome) {
  if (outcome == Outcome::kHolds) return "holds";
  return outcome == Outcome::kSkipped ? "skipped" : "failed";
}

}  // namespace

std::string JsonOf(const Fact& fact) {
  return JsonObject()
      .AddText("fact", fact.name)
      .AddText("severity", NameOf(fact.severity))
      .AddText("sentence", fact.sentence)
      .Text();
}

std::string JsonOf(const std::string& bundle, const FactResult& result) {
  return JsonObject()
      .AddPath("bundle", bundle)
      .AddText("fact", result.fact->name)
      .AddText("severity", NameOf(result.fact->severity))
      .AddText("outcome", WordOf(result.outcome))
      .AddTextOrNull("message", result.message)
      .AddTextOrNull("reproduce", result.reproduce)
      .AddNumber("milliseconds", static_cast<std::uint64_t>(result.duration.count()))
      .Text();
}

std::string JsonOf(const BundleResults& results, bool strict) {
  const OutcomeCounts counts = CountsOf(results);
  return JsonObject()
      .AddPath("bundle", results.bundle)
      .AddText("status", Fails(counts, strict) ? "failed" : "passed")
      .AddNumber("facts", counts.facts)
      .AddNumber("holding", counts.holding)
      .AddNumber("errors", counts.errors)
      .AddNumber("warnings", counts.warnings)
      .AddNumber("notes", counts.notes)
      .AddNumber("skipped", counts.skipped)
      .Text();
}

}  // namespace brvhost
