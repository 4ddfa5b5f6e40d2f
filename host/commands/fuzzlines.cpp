#include "host/commands/fuzzlines.h"

#include <fmt/format.h>

#include "host/commands/argumentnames.h"
#include "host/text/json.h"
#include "host/text/printable.h"
#include "host/text/shellword.h"

namespace brvhost {
namespace {

std::string CommandFor(const std::string& bundle, const FuzzFinding& finding) {
  const std::string command = "brvhost fuzz " + ShellWord(bundle);
  if (!finding.NeedsOthers()) return fmt::format("{} {} {}", command, kReproduce, finding.seed);
  return fmt::format("{} --seed {} --rounds {}", command, finding.needed.first, finding.needed.count);
}

const char* StatusOf(const FuzzRun& run) {
  if (run.isInterrupted) return "interrupted";
  return run.summary.findings == 0 ? "passed" : "failed";
}

}  // namespace

std::string LinesOf(const std::string& bundle, const FuzzFinding& finding) {
  return fmt::format("FOUND   {} [{}]\n        {}: {}\n", Printable(finding.finding.text), NameOf(finding.finding.kind),
                     finding.NeedsOthers() ? "after other rounds" : "again", Printable(CommandFor(bundle, finding)));
}

std::string LineOf(const FuzzRun& run) {
  const auto [rounds, findings] = run.summary;
  const std::string found =
      findings == 0 ? "nothing" : fmt::format("{} kind{} of fault", findings, findings == 1 ? "" : "s");
  return fmt::format("{} round{} from seed {} on: {} found\n", rounds, rounds == 1 ? "" : "s", run.seed, found);
}

std::string JsonOf(const std::string& bundle, const FuzzFinding& finding) {
  return JsonObject()
      .AddPath("bundle", bundle)
      .AddText("finding", NameOf(finding.finding.kind))
      .AddText("message", finding.finding.text)
      .AddNumber("seed", finding.seed)
      .AddText("reproduce", CommandFor(bundle, finding))
      .Text();
}

std::string JsonOf(const FuzzRun& run) {
  return JsonObject()
      .AddPath("bundle", run.bundle)
      .AddText("status", StatusOf(run))
      .AddNumber("seed", run.seed)
      .AddNumber("rounds", run.summary.rounds)
      .AddNumber("findings", run.summary.findings)
      .Text();
}

}  // namespace brvhost
