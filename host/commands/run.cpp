#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "host/batch/extensionprocess.h"
#include "host/batch/job.h"
#include "host/batch/offer.h"
#include "host/batch/pool.h"
#include "host/bundle/loadedbundle.h"
#include "host/commands/bundleargument.h"
#include "host/commands/commands.h"
#include "host/commands/itemoption.h"
#include "host/commands/regionoptions.h"
#include "host/commands/targets.h"
#include "host/commands/tracefile.h"
#include "host/commands/usageerror.h"
#include "host/files/standardstreams.h"
#include "host/process/descriptor.h"
#include "host/process/exitstatus.h"
#include "host/process/interrupt.h"
#include "host/process/processors.h"
#include "host/process/terminal.h"

namespace brvhost {
namespace {

int ItemOf(const Offer& offer, const Options& options, const std::string& bundle) {
  const int item = ChosenItem(offer, options);
  if (!offer.isEnabled) throw BundleError(bundle + ": the extension's menu items are disabled");
  return item;
}

TerminalUse UseOfTerminal(const Options& options) {
  if (options.quiet && options.verbose) throw UsageError("--quiet and --verbose: one or the other, not both");
  const bool printsScore = options.output == kStandardStream;
  if (options.json && printsScore) throw UsageError("--json and --output -: both are for the standard output");
  return {.isQuiet = options.quiet, .hasBar = !TracesToTerminal(options), .outputIsTaken = options.json || printsScore};
}

}  // namespace

int Run(const Options& options) {
  JobSettings settings;
  settings.bundle = BundleOf(options);
  settings.itemName = options.itemName;
  settings.region = RegionOptions(options);
  settings.agree = options.yes;
  settings.maxSize = options.maxSize;
  settings.maxMemory = options.maxMemory;
  settings.secondsAScore = options.timeout;
  settings.confine = options.confines;
  settings.listsChanges = options.list;
  settings.printsJson = options.json;
  settings.namesEachScore = options.verbose;
  settings.traces = !options.trace.empty();
  settings.tracesTimes = options.traceTimes;
  const Descriptor trace = OpenTrace(options);
  Terminal terminal(UseOfTerminal(options));
  CheckSelection(settings.region, options, terminal);

  const auto slots = static_cast<std::size_t>(options.jobs);
  ExtensionProcess extension(settings, slots, terminal);  // before the list of scores, which can be long
  const std::vector<Job> jobs = JobsOf(options);
  // Several scores share the processors, as --jobs allows.
  if (jobs.size() == 1) settings.readers = Processors();

  CountInterrupts();
  extension.Load(trace);
  Pool pool(jobs, settings, extension, terminal, std::min(jobs.size(), slots));
  pool.StartJobs();
  const auto offer = extension.WaitForOffer();
  if (!offer) {
    pool.GiveUp();
    return kInterrupted;
  }
  extension.UseItem(ItemOf(*offer, options, settings.bundle));
  MakeFolders(jobs, options);
  RemoveLeftovers(jobs);
  const int status = pool.Run();
  const bool isFinished = extension.Finish();
  if (InterruptCount() > 0) return kInterrupted;
  return isFinished ? status : std::max<int>(status, kFailed);
}

}  // namespace brvhost
