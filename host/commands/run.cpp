#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
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
#include "host/process/processors.h"
#include "host/process/terminal.h"
#include "host/score/fraction.h"
#include "host/score/region.h"

namespace brvhost {
namespace {

namespace fs = std::filesystem;

std::optional<NumberRange> RangeOption(const char* name, const std::string& text) {
  if (text.empty()) return std::nullopt;
  const auto range = ParseNumberRange(text);
  if (!range) throw UsageError(fmt::format("{} {}: is not a range such as 3, 2-5, 2- or -5", name, text));
  return range;
}

std::optional<Fraction> QuartersOption(const char* name, const std::string& text) {
  if (text.empty()) return std::nullopt;
  const auto quarters = ParseFraction(text);
  if (!quarters || quarters->IsNegative()) {
    throw UsageError(fmt::format("{} {}: is not a number of quarter notes such as 2, 5/2 or 2.5", name, text));
  }
  return quarters;
}

std::vector<int> LayersOption(const std::string& text) {
  if (text.empty()) return {};
  std::vector<int> layers;
  for (std::size_t start = 0; start <= text.size();) {
    const std::size_t comma = std::min(text.find(',', start), text.size());
    const auto range = ParseNumberRange(text.substr(start, comma - start));
    if (!range || range->last != range->first) {
      throw UsageError(fmt::format("--layers {}: is not a list of layers such as 1,3", text));
    }
    layers.push_back(range->first - 1);
    start = comma + 1;
  }
  return layers;
}

RegionRequest RegionOptions(const Options& options) {
  RegionRequest region;
  region.staves = RangeOption("--staves", options.staves);
  region.measures = RangeOption("--measures", options.measures);
  region.startAt = QuartersOption("--start-at", options.startAt);
  region.endAt = QuartersOption("--end-at", options.endAt);
  region.all = options.all;
  return region;
}

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
  settings.shownLayers = LayersOption(options.layers);
  settings.agree = options.yes;
  settings.maxSize = options.maxSize;
  CheckTargets(options);
  const std::vector<Job> jobs = JobsOf(options);
  // Several scores share the processors, as --jobs allows.
  if (jobs.size() == 1) settings.readers = Processors();

  const Extension extension(options.bundle);
  CheckItem(extension, options);
  MakeOutputFolder(options.outputFolder);
  Terminal terminal;
  const int status = Pool(extension, settings, terminal).Run(jobs, options.jobs);
  extension.Terminate();
  return status;
}

}  // namespace brvhost
