#include <cstdio>
#include <filesystem>
#include <string>

#include "host/bundle/loadedbundle.h"
#include "host/check/facts.h"
#include "host/check/isolated.h"
#include "host/commands/commands.h"
#include "host/process/exitstatus.h"
#include "host/process/streams.h"

namespace brvhost {
namespace {

constexpr int kSecondsPerFact = 10;

}  // namespace

int Check(const Options& options) {
  if (!std::filesystem::is_directory(options.bundle)) throw BundleError(options.bundle + ": there is no such bundle");
  int status = kDone;
  for (const Fact& fact : FactsAbout(options.bundle)) {
    const std::string wrong = RunIsolated(fact.check, kSecondsPerFact);
    Print(stdout, "{}  {}{}\n", wrong.empty() ? "ok    " : "FAILED", fact.name, wrong.empty() ? "" : ": " + wrong);
    std::fflush(stdout);
    if (wrong.empty()) continue;
    status = kFailed;
    if (!fact.othersNeedIt) continue;
    Print(stdout, "        the other facts need this one\n");
    break;
  }
  return status;
}

}  // namespace brvhost
