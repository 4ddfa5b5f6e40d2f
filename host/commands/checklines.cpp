#include "host/commands/checklines.h"

#include <fmt/format.h>

#include <cstddef>
#include <string_view>

#include "host/text/printable.h"

namespace brvhost {
namespace {

std::string_view WordOf(Outcome outcome) {
  switch (outcome) {
    case Outcome::kHolds:
      return "ok";
    case Outcome::kNote:
      return "note";
    case Outcome::kWarning:
      return "warning";
    default:
      return "FAILED";
  }
}

std::string Counted(std::size_t count, const char* noun) {
  return fmt::format("{} {}{}", count, noun, count == 1 ? "" : "s");
}

// What there is none of is left out.
std::string IfAny(std::size_t count, const std::string& text) { return count == 0 ? "" : ", " + text; }

}  // namespace

std::string LineOf(const Fact& fact) {
  return fmt::format("{}\t{}\t{}\n", fact.name, NameOf(fact.severity), fact.sentence);
}

std::string LinesOf(const FactResult& result) {
  if (result.outcome == Outcome::kSkipped) return "";
  const std::string message = result.message.empty() ? "" : ": " + Printable(result.message);
  std::string lines =
      fmt::format("{:<8}{}{} [{}]\n", WordOf(result.outcome), result.fact->sentence, message, result.fact->name);
  if (!result.reproduce.empty()) lines += fmt::format("        in a debugger: {}\n", Printable(result.reproduce));
  if (result.outcome == Outcome::kError && result.fact->kind == FactKind::kStart) {
    lines += "        the facts that need this one are skipped\n";
  }
  return lines;
}

std::string SummaryOf(const std::vector<BundleResults>& results) {
  const OutcomeCounts counts = CountsOf(results);
  const std::string bundles = results.size() == 1 ? "" : " of " + Counted(results.size(), "bundle");
  return fmt::format("{}{}: {} hold{}, {}, {}{}{}\n", Counted(counts.facts, "fact"), bundles, counts.holding,
                     counts.holding == 1 ? "s" : "", Counted(counts.errors, "error"),
                     Counted(counts.warnings, "warning"), IfAny(counts.notes, Counted(counts.notes, "note")),
                     IfAny(counts.skipped, fmt::format("{} skipped", counts.skipped)));
}

}  // namespace brvhost
