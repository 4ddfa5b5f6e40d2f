#include <fmt/format.h>

#include <filesystem>
#include <iterator>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <system_error>
#include <vector>

#include "host/batch/job.h"
#include "host/batch/pool.h"
#include "host/bundle/extension.h"
#include "host/bundle/loadedbundle.h"
#include "host/commands/commands.h"
#include "host/commands/regionoptions.h"
#include "host/process/processors.h"
#include "host/process/terminal.h"

namespace brvhost {
namespace {

namespace fs = std::filesystem;

Job JobFor(const std::string& score, const Options& options) {
  if (options.dryRun) return {score, std::nullopt};
  if (options.inPlace) return {score, score, true};
  if (!options.output.empty()) return {score, options.output};
  return {score, (fs::path(options.outputFolder) / fs::path(score).filename()).string()};
}

void CheckTargets(const Options& options) {
  const int named = !options.output.empty() + !options.outputFolder.empty() + options.inPlace + options.dryRun;
  if (named != 1) throw UsageError("run needs exactly one of --output, --in-place, --out-dir and --dry-run");
  if (!options.output.empty() && options.scores.size() > 1) {
    throw UsageError("--output is for a single score; --in-place and --out-dir take several");
  }
}

// The same path for all names of one file; the name itself where the system cannot resolve it.
fs::path FileNamed(const std::string& name) {
  std::error_code error;
  const fs::path file = fs::weakly_canonical(name, error);
  return error ? fs::path(name) : file;
}

std::vector<Job> JobsOf(const Options& options) {
  std::map<fs::path, std::string> scores;
  for (const std::string& score : options.scores) scores.emplace(FileNamed(score), score);
  std::vector<Job> jobs;
  std::set<fs::path> targets;
  for (const std::string& score : options.scores) {
    jobs.push_back(JobFor(score, options));
    const auto& target = jobs.back().target;
    if (!target) continue;
    const fs::path file = FileNamed(*target);
    if (!targets.insert(file).second) {
      throw UsageError(fmt::format("{}: two of the results would have this name", *target));
    }
    const auto replaced = scores.find(file);
    if (replaced != scores.end() && replaced->second != score) {
      throw UsageError(fmt::format("{}: the result for {} would replace another of the scores", *target, score));
    }
  }
  return jobs;
}

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
  Terminal terminal;
  CheckSelection(settings.region, options, terminal);
  CheckTargets(options);
  const std::vector<Job> jobs = JobsOf(options);
  // Several scores share the processors, as --jobs allows.
  if (jobs.size() == 1) settings.readers = Processors();

  const Extension extension(options.bundle);
  CheckItem(extension, options);
  MakeOutputFolder(options.outputFolder);
  const int status = Pool(extension, settings, terminal).Run(jobs, options.jobs);
  extension.Terminate();
  return status;
}

}  // namespace brvhost
