#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <random>
#include <string>

#include "host/calls/trace.h"
#include "host/check/checker.h"
#include "host/commands/argumentnames.h"
#include "host/commands/bundleargument.h"
#include "host/commands/commands.h"
#include "host/commands/fuzzlines.h"
#include "host/commands/tracefile.h"
#include "host/commands/usageerror.h"
#include "host/files/standardstreams.h"
#include "host/fuzz/fuzzer.h"
#include "host/fuzz/roundplayer.h"
#include "host/process/exitstatus.h"
#include "host/process/interrupt.h"
#include "host/process/streams.h"

namespace brvhost {
namespace {

constexpr int kDefaultSeconds = 10;

// Prints what is found, as it is found.
class Printer {
 public:
  Printer(const Options& options, const std::string& bundle) : options_(options), bundle_(bundle) {}

  void PrintFinding(const FuzzFinding& finding) const {
    Print(stdout, "{}", options_.json ? JsonOf(bundle_, finding) + "\n" : LinesOf(bundle_, finding));
    std::fflush(stdout);
  }

  // Returns the exit status.
  int PrintEnd(const FuzzRun& run) const {
    if (options_.json) Print(stdout, "{}\n", JsonOf(run));
    Print(options_.json ? stderr : stdout, "{}", LineOf(run));
    if (run.isInterrupted) return kInterrupted;
    return run.summary.findings == 0 ? kDone : kFailed;
  }

 private:
  const Options& options_;
  const std::string& bundle_;
};

// All that there are from the first one on, as far as options can name them.
std::uint64_t CountFrom(std::uint64_t first, const Options& options) {
  constexpr auto kLast = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
  const std::uint64_t most = kLast - first + 1;
  return options.rounds ? std::min(most, static_cast<std::uint64_t>(*options.rounds)) : most;
}

FuzzSettings SettingsOf(const Options& options, const std::string& bundle) {
  FuzzSettings settings;
  settings.rounds = {bundle, options.roundTimeout, options.checkConfines};
  settings.seeds.first = options.seed ? static_cast<std::uint64_t>(*options.seed) : std::random_device()();
  settings.seeds.count = CountFrom(settings.seeds.first, options);
  settings.seconds = options.fuzzTime;
  if (!options.fuzzTime && !options.rounds) settings.seconds = kDefaultSeconds;
  settings.jobs = options.jobs;
  return settings;
}

int Reproduce(const Options& options, const std::string& bundle, const Printer& printer) {
  if (options.seed || options.rounds || options.fuzzTime) {
    throw UsageError(std::string(kReproduce) + ": plays one round; --seed, --rounds and --time are for many");
  }
  Options traced = options;
  traced.trace = kStandardStream;
  Trace trace(OpenTrace(traced), false);
  RoundPlayer player(bundle);
  const auto seed = static_cast<std::uint64_t>(*options.reproduce);
  auto found = player.Play(seed, [&](const std::string& description) { trace.Begin(description); });
  if (!found) found = player.End();
  if (found) printer.PrintFinding({*found, seed, {seed, 1}});
  return printer.PrintEnd({bundle, seed, false, {1, found ? 1U : 0U}});
}

}  // namespace

int Fuzz(const Options& options) {
  const std::string bundle = BundleOf(options);
  const Printer printer(options, bundle);
  if (options.reproduce) return Reproduce(options, bundle, printer);
  ExpectConfinement({options.roundTimeout, options.checkConfines, false, nullptr});
  const FuzzSettings settings = SettingsOf(options, bundle);
  CountInterrupts();
  Fuzzer fuzzer(settings, [&](const FuzzFinding& finding) { printer.PrintFinding(finding); });
  const FuzzSummary summary = fuzzer.Run();
  return printer.PrintEnd({bundle, settings.seeds.first, InterruptCount() > 0, summary});
}

}  // namespace brvhost
