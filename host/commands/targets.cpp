#include "host/commands/targets.h"

#include <fmt/format.h>
#include <sys/stat.h>

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <system_error>
#include <utility>

#include "host/commands/usageerror.h"
#include "host/files/fileidentity.h"
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

// Files that are found under all of their names.
class Files {
 public:
  void Add(const std::string& name) {
    byPath_.emplace(FileNamed(name), name);
    if (const auto inode = InodeOf(name)) byInode_.emplace(*inode, name);
  }

  // The name under which the file was added, or null when it was not.
  const std::string* Find(const std::string& name) const {
    const auto path = byPath_.find(FileNamed(name));
    if (path != byPath_.end()) return &path->second;
    const auto number = InodeOf(name);
    const auto inode = number ? byInode_.find(*number) : byInode_.end();
    return inode == byInode_.end() ? nullptr : &inode->second;
  }

 private:
  using Inode = std::pair<std::uint64_t, std::uint64_t>;  // of which device

  static std::optional<Inode> InodeOf(const std::string& name) {
    struct stat status;
    if (stat(name.c_str(), &status) != 0) return std::nullopt;
    const FileIdentity identity = IdentityOf(status);
    return Inode(identity.device, identity.inode);
  }

  std::map<fs::path, std::string> byPath_;
  std::map<Inode, std::string> byInode_;
};

void CheckOptions(const Options& options) {
  const int named = !options.output.empty() + !options.outputFolder.empty() + options.inPlace + options.dryRun;
  if (named != 1) throw UsageError("run needs exactly one of --output, --in-place, --out-dir and --dry-run");
  if (!options.output.empty() && options.scores.size() > 1) {
    throw UsageError("--output is for a single score; --in-place and --out-dir take several");
  }
}

Job JobFor(const std::string& score, const Options& options) {
  if (options.dryRun) return {score, std::nullopt};
  if (options.inPlace) return {score, score, true};
  if (!options.output.empty()) return {score, options.output};
  return {score, (fs::path(options.outputFolder) / fs::path(score).filename()).string()};
}

void CheckIsNoScore(const std::string& target, const Files& scores) {
  const std::string* const score = scores.Find(target);
  if (score == nullptr) return;
  const std::string which = *score == target ? "one of the scores" : "the score " + *score;
  throw UsageError(fmt::format("{}: is {}; only --in-place writes to a score", target, which));
}

void CheckIsNoOther(const std::string& target, const Files& targets) {
  const std::string* const other = targets.Find(target);
  if (other == nullptr) return;
  const std::string which = *other == target ? "" : ", which is also named " + *other;
  throw UsageError(fmt::format("{}: two of the results would be this file{}", target, which));
}

}  // namespace

std::vector<Job> JobsOf(const Options& options) {
  CheckOptions(options);
  Files scores;
  for (const std::string& score : options.scores) scores.Add(score);
  std::vector<Job> jobs;
  Files targets;
  for (const std::string& score : options.scores) {
    jobs.push_back(JobFor(score, options));
    const auto& target = jobs.back().target;
    if (!target) continue;
    if (!options.inPlace) CheckIsNoScore(*target, scores);
    CheckIsNoOther(*target, targets);
    targets.Add(*target);
  }
  return jobs;
}

void RemoveLeftovers(const std::vector<Job>& jobs) {
  std::set<fs::path> folders;
  for (const Job& job : jobs) {
    if (job.target) folders.insert(FileNamed(*job.target).parent_path());
  }
  for (const fs::path& folder : folders) RemoveAbandonedFiles(folder.string());
}

}  // namespace brvhost
