#include <fmt/format.h>

#include <filesystem>
#include <iterator>
#include <string>
#include <system_error>
#include <vector>

#include "host/batch/job.h"
#include "host/batch/pool.h"
#include "host/bundle/extension.h"
#include "host/bundle/loadedbundle.h"
#include "host/commands/commands.h"
#include "host/commands/regionoptions.h"
#include "host/commands/targets.h"
#include "host/process/processors.h"
#include "host/process/terminal.h"

namespace brvhost {
namespace {

namespace fs = std::filesystem;

void MakeOutputFolder(const std::string& folder) {
  std::error_code error;
  if (!folder.empty()) fs::create_directories(folder, error);
  if (error) throw UsageError(fmt::format("--out-dir {}: {}", folder, error.message()));
}

void CheckItem(const Extension& extension, const Options& options) {
  const auto count = std::ssize(extension.Items());
  if (options.item < 0 || options.item >= count) {
    throw UsageError(fmt::format("--item {}: the extension has {} items, from 0", options.item, count));
  }
  if (extension.MenuStatus() == 0) throw BundleError(options.bundle + ": the extension's menu items are disabled");
}

}  // namespace

int Run(const Options& options) {
  JobSettings settings;
  settings.item = options.item;
  settings.region = RegionOptions(options);
  settings.shownLayers = settings.region.layers;
  settings.agree = options.yes;
  settings.maxSize = options.maxSize;
  settings.maxMemory = options.maxMemory;
  Terminal terminal;
  CheckSelection(settings.region, options, terminal);
  const std::vector<Job> jobs = JobsOf(options);
  // Several scores share the processors, as --jobs allows.
  if (jobs.size() == 1) settings.readers = Processors();

  const Extension extension(options.bundle);
  CheckItem(extension, options);
  MakeOutputFolder(options.outputFolder);
  RemoveLeftovers(jobs);
  const int status = Pool(extension, settings, terminal).Run(jobs, options.jobs);
  extension.Terminate();
  return status;
}

}  // namespace brvhost
