#include <fmt/format.h>

#include <cstdio>
#include <filesystem>

#include "host/batch/exitstatus.h"
#include "host/bundle/extension.h"
#include "host/check/facts.h"
#include "host/check/isolated.h"
#include "host/commands/commands.h"
#include "host/text/streams.h"

namespace brvhost {
namespace {

constexpr int kSecondsPerFact = 10;

}  // namespace

int Check(const Options& options) {
  if (!std::filesystem::is_directory(options.bundle)) throw BundleError(options.bundle + ": there is no such bundle");
  int status = kDone;
  for (const Fact& fact : FactsAbout(options.bundle)) {
    const std::string wrong = RunIsolated(fact.check, kSecondsPerFact);
    Say(stdout, "{}  {}{}\n", wrong.empty() ? "ok    " : "FAILED", fact.name, wrong.empty() ? "" : ": " + wrong);
    std::fflush(stdout);
    if (wrong.empty()) continue;
    status = kFailed;
    if (!fact.othersNeedIt) continue;
    Say(stdout, "        the other facts need this one\n");
    break;
  }
  return status;
}

}  // namespace brvhost
