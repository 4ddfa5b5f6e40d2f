#include <fmt/format.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "host/bundle/loadedbundle.h"
#include "host/calls/trace.h"
#include "host/check/checker.h"
#include "host/check/emptyhost.h"
#include "host/check/facts.h"
#include "host/check/results.h"
#include "host/commands/bundleargument.h"
#include "host/commands/checkjson.h"
#include "host/commands/checkjunit.h"
#include "host/commands/checklines.h"
#include "host/commands/commands.h"
#include "host/commands/factselection.h"
#include "host/commands/tracefile.h"
#include "host/commands/usageerror.h"
#include "host/files/safefile.h"
#include "host/files/target.h"
#include "host/process/descriptor.h"
#include "host/process/exitstatus.h"
#include "host/process/streams.h"
#include "host/text/printable.h"

namespace brvhost {
namespace {

int ListFacts(const Options& options) {
  if (!options.bundles.empty()) throw UsageError(options.bundles[0] + ": --list lists the facts, and takes no bundle");
  for (const Fact* const fact : SelectedFacts(options)) {
    Print(stdout, "{}", options.json ? JsonOf(*fact) + "\n" : LineOf(*fact));
  }
  return kDone;
}

// A debugger is for one fact about one bundle.
void ExpectOne(const Options& options, const std::vector<const Fact*>& facts) {
  if (facts.size() > 1) {
    throw UsageError(fmt::format("--in-process: takes one fact; --include and --exclude leave {}", facts.size()));
  }
  if (options.bundles.size() > 1) throw UsageError("--in-process: takes one bundle");
}

std::vector<std::string> ExistingBundlesOf(const Options& options) {
  std::vector<std::string> bundles = BundlesOf(options);
  for (const std::string& bundle : bundles) {
    std::error_code error;
    if (!std::filesystem::is_directory(bundle, error)) throw BundleError(bundle + ": there is no such bundle");
  }
  return bundles;
}

void PrintNow(const std::string& text) {
  Print(stdout, "{}", text);
  std::fflush(stdout);
}

// Prints the results of a run as they come.
class Printer {
 public:
  explicit Printer(const Options& options) : options_(options) {}

  void PrintResult(const std::string& bundle, const FactResult& result) {
    if (options_.onlyFailed && result.outcome == Outcome::kHolds) return;
    if (options_.json) return PrintNow(JsonOf(bundle, result) + "\n");
    PrintHeading(bundle);
    PrintNow(LinesOf(result));
  }

  void PrintEnd(const BundleResults& results) const {
    if (options_.json) PrintNow(JsonOf(results, options_.strict) + "\n");
  }

 private:
  // Once before the lines of a bundle, where there are several.
  void PrintHeading(const std::string& bundle) {
    if (options_.bundles.size() == 1 || heading_ == bundle) return;
    heading_ = bundle;
    PrintNow(Printable(bundle) + "\n");
  }

  const Options& options_;
  std::string heading_;
};

// Opened only now, so that no extension gets its descriptor.
void Write(const std::string& name, const std::string& content) {
  const Target target(name);
  SafeFile file(target);
  file.Write(content);
  for (const std::string& warning : file.Commit()) Print(stderr, "brvhost: {}\n", Printable(warning));
}

}  // namespace

int Check(const Options& options) {
  if (options.list) return ListFacts(options);
  const std::vector<const Fact*> facts = SelectedFacts(options);
  if (options.inProcess) ExpectOne(options, facts);
  const std::vector<std::string> bundles = ExistingBundlesOf(options);
  CheckSettings settings{options.factTimeout, options.checkConfines, options.inProcess, nullptr};
  ExpectConfinement(settings);
  Descriptor traceFile = OpenTrace(options);
  std::optional<Trace> trace;
  if (traceFile) settings.trace = &trace.emplace(std::move(traceFile), options.traceTimes);
  std::optional<EmptyHost> emptyHost;
  if (std::ranges::any_of(facts, &Fact::needsEmptyHost)) emptyHost.emplace();

  Printer printer(options);
  std::vector<BundleResults> results;
  for (const std::string& bundle : bundles) {
    const Subject subject{bundle, emptyHost ? &*emptyHost : nullptr};
    const auto report = [&](const FactResult& result) { printer.PrintResult(bundle, result); };
    results.push_back(CheckBundle(subject, facts, settings, report));
    printer.PrintEnd(results.back());
  }
  if (!options.junit.empty()) Write(options.junit, JUnitOf(results, options.strict));
  Print(options.json ? stderr : stdout, "{}", SummaryOf(results));
  return Fails(CountsOf(results), options.strict) ? kFailed : kDone;
}

}  // namespace brvhost
