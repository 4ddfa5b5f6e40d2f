#include "host/commands/targets.h"

#include <fmt/format.h>
#include <unistd.h>

#include <cstddef>
#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <system_error>
#include <vector>

#include "host/commands/scorelist.h"
#include "host/commands/usageerror.h"
#include "host/files/fileidentity.h"
#include "host/files/standardstreams.h"
#include "host/files/temporaryname.h"

namespace brvhost {
namespace {

namespace fs = std::filesystem;

// The same path for all names of one file but hard links; the name itself where the system cannot resolve it.
fs::path FileNamed(const std::string& name) {
  std::error_code error;
  const fs::path file = fs::weakly_canonical(fs::absolute(name, error), error);
  return error ? fs::path(name) : file;
}

// Files that are found under all of their names. The name "-" is a standard stream's, whose descriptor goes with it.
class Files {
 public:
  void Add(const std::string& name, int stream) {
    if (name != kStandardStream) byPath_.emplace(FileNamed(name), name);
    if (const auto inode = NumbersOf(name, stream)) byInode_.emplace(*inode, name);
  }

  // The name under which the file was added, or null when it was not.
  const std::string* Find(const std::string& name, int stream) const {
    const auto path = name == kStandardStream ? byPath_.end() : byPath_.find(FileNamed(name));
    if (path != byPath_.end()) return &path->second;
    const auto numbers = NumbersOf(name, stream);
    const auto inode = numbers ? byInode_.find(*numbers) : byInode_.end();
    return inode == byInode_.end() ? nullptr : &inode->second;
  }

 private:
  static std::optional<Inode> NumbersOf(const std::string& name, int stream) {
    return name == kStandardStream ? InodeOfFile(stream) : InodeOf(name);
  }

  std::map<fs::path, std::string> byPath_;
  std::map<Inode, std::string> byInode_;
};

void CheckOptions(const Options& options, std::size_t scores) {
  const int named = !options.output.empty() + !options.outputFolder.empty() + options.inPlace + options.dryRun;
  if (named != 1) throw UsageError("run needs exactly one of --output, --in-place, --out-dir and --dry-run");
  if (!options.output.empty() && scores > 1) {
    throw UsageError("--output is for a single score; --in-place and --out-dir take several");
  }
}

// The standard input has neither a place nor a name.
void CheckHasName(const std::string& score, const char* option) {
  if (score != kStandardStream) return;
  throw UsageError(fmt::format("{}: is not for the standard input; --output and --dry-run are", option));
}

Job JobFor(const ListedScore& score, const Options& options) {
  if (options.dryRun) return {score.path, std::nullopt};
  if (!options.output.empty()) return {score.path, options.output};
  CheckHasName(score.path, options.inPlace ? "--in-place" : "--out-dir");
  if (options.inPlace) return {score.path, score.path, true};
  return {score.path, (fs::path(options.outputFolder) / score.name).string()};
}

void CheckIsNoScore(const std::string& target, const Files& scores) {
  const std::string* const score = scores.Find(target, STDOUT_FILENO);
  if (score == nullptr) return;
  const std::string which = *score == target ? "one of the scores" : "the score " + InputName(*score);
  throw UsageError(fmt::format("{}: is {}; only --in-place writes to a score", OutputName(target), which));
}

void CheckIsNoOther(const std::string& target, const Files& targets) {
  const std::string* const other = targets.Find(target, STDOUT_FILENO);
  if (other == nullptr) return;
  const std::string which = *other == target ? "" : ", which is also named " + *other;
  throw UsageError(fmt::format("{}: two of the results would be this file{}", target, which));
}

}  // namespace

std::vector<Job> JobsOf(const Options& options) {
  const std::vector<ListedScore> listed = ScoresOf(options);
  CheckOptions(options, listed.size());
  Files scores;
  for (const ListedScore& score : listed) scores.Add(score.path, STDIN_FILENO);
  std::vector<Job> jobs;
  Files targets;
  for (const ListedScore& score : listed) {
    jobs.push_back(JobFor(score, options));
    const auto& target = jobs.back().target;
    if (!target) continue;
    if (!options.inPlace) CheckIsNoScore(*target, scores);
    CheckIsNoOther(*target, targets);
    targets.Add(*target, STDOUT_FILENO);
  }
  return jobs;
}

void MakeFolders(const std::vector<Job>& jobs, const Options& options) {
  if (options.outputFolder.empty()) return;
  std::set<fs::path> folders;
  for (const Job& job : jobs) folders.insert(fs::path(*job.target).parent_path());
  for (const fs::path& folder : folders) {
    std::error_code error;
    fs::create_directories(folder, error);
    if (error) throw UsageError(fmt::format("--out-dir {}: {}", folder.string(), error.message()));
  }
}

void RemoveLeftovers(const std::vector<Job>& jobs) {
  std::set<fs::path> folders;
  for (const Job& job : jobs) {
    if (job.HasFile()) folders.insert(FileNamed(*job.target).parent_path());
  }
  for (const fs::path& folder : folders) RemoveAbandonedFiles(folder.string());
}

}  // namespace brvhost
