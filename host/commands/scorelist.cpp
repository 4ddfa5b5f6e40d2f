#include "host/commands/scorelist.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <optional>
#include <set>
#include <string_view>
#include <system_error>
#include <utility>

#include "host/commands/argumentnames.h"
#include "host/commands/optionvalues.h"
#include "host/commands/usageerror.h"
#include "host/files/bytes.h"
#include "host/files/fileidentity.h"
#include "host/files/filekind.h"
#include "host/files/inputfile.h"
#include "host/files/scoretree.h"
#include "host/files/sizelimit.h"
#include "host/files/standardstreams.h"
#include "host/text/inputerror.h"

namespace brvhost {
namespace {

namespace fs = std::filesystem;

bool IsFolder(const std::string& path) {
  std::error_code error;
  return fs::is_directory(path, error);
}

// In a list, "-" is the name of a file.
std::string FileNamed(std::string_view name) { return name == kStandardStream ? "./-" : std::string(name); }

// Each line of a list without what a system puts around its text: a byte order mark, a carriage return.
std::string_view TextOfLine(std::string_view line) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (line.starts_with(kByteOrderMark)) line.remove_prefix(kByteOrderMark.size());
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

std::vector<std::string> NamesIn(std::string_view list, bool endsNamesWithZero) {
  const char end = endsNamesWithZero ? '\0' : '\n';
  std::vector<std::string> names;
  while (!list.empty()) {
    const std::string_view item = list.substr(0, list.find(end));
    const std::string_view name = endsNamesWithZero ? item : TextOfLine(item);
    if (!name.empty()) names.push_back(FileNamed(name));
    list.remove_prefix(std::min(item.size() + 1, list.size()));
  }
  return names;
}

// Of each line only what precedes a character 0 would be found.
void CheckHasNoZero(std::string_view list, const Options& options) {
  if (options.endsNamesWithZero || list.find('\0') == std::string_view::npos) return;
  throw InputError("has a character 0 in it: --null takes names that end with one; a list in UTF-16 is not read");
}

// The lines of a score would each be missed as a file.
void CheckIsNoScore(const std::string& list) {
  if (list == kStandardStream) return;
  if (IsFolder(list)) throw InputError("is a folder, not a list of scores");
  if (KindOf(list) == FileKind::kScore) throw InputError("is a score, not a list of scores");
}

std::vector<std::string> NamesInList(const Options& options) {
  if (options.filesFrom.empty()) return {};
  try {
    CheckIsNoScore(options.filesFrom);
    const Bytes list = InputFile(options.filesFrom).Read(kDefaultMaxSize);
    CheckHasNoZero(list.View(), options);
    return NamesIn(list.View(), options.endsNamesWithZero);
  } catch (const InputError& error) {
    throw UsageError(fmt::format("--files-from {}: {}", options.filesFrom, error.what()));
  }
}

void CheckStandardInput(const Options& options) {
  const auto uses =
      std::ranges::count(options.scores, kStandardStream) + (options.filesFrom == kStandardStream ? 1 : 0);
  if (uses > 1) throw UsageError("-: the standard input is asked for twice; it can be read once");
}

class List {
 public:
  explicit List(const Options& options) : options_(options) {}

  void Add(const std::vector<std::string>& names) {
    if (options_.recursive) See(names);
    for (const std::string& name : names) {
      if (options_.recursive && name != kStandardStream && IsFolder(name)) {
        AddFolder(name);
      } else {
        scores_.push_back({name, fs::path(name).filename().string()});
      }
    }
  }

  std::vector<ListedScore> Take() { return std::move(scores_); }

 private:
  // What is named itself is not found once more in a folder, and results are no scores.
  void See(const std::vector<std::string>& names) {
    for (const std::string& name : names) {
      if (const auto inode = IsFolder(name) ? std::nullopt : InodeOf(name)) seen_.insert(*inode);
    }
    const auto results = options_.outputFolder.empty() ? std::nullopt : InodeOf(options_.outputFolder);
    const auto isIt = [&](const std::string& name) { return InodeOf(name) == results; };
    if (results && std::ranges::none_of(names, isIt)) seen_.insert(*results);
  }

  void AddFolder(const std::string& folder) {
    for (std::string& name : ScoresBelow(folder, seen_)) {
      std::string path = (fs::path(folder) / name).string();
      scores_.push_back({std::move(path), std::move(name)});
    }
  }

  const Options& options_;
  std::set<Inode> seen_;
  std::vector<ListedScore> scores_;
};

[[noreturn]] void FailWithoutScores(const Options& options, const std::vector<std::string>& names) {
  if (names.empty()) throw UsageError(fmt::format("--files-from {}: names no score", options.filesFrom));
  throw UsageError(fmt::format("{}: no file in {} is a score named .musicxml, .xml or .mxl", names[0],
                               names.size() == 1 ? "it" : "it, or in the others,"));
}

}  // namespace

std::vector<ListedScore> ScoresOf(const Options& options) {
  if (options.endsNamesWithZero && options.filesFrom.empty()) throw UsageError("--null: is for --files-from");
  CheckStandardInput(options);
  for (const std::string& score : options.scores) RefuseEmpty(kScoreArgument, score);
  std::vector<std::string> names = options.scores;
  std::ranges::move(NamesInList(options), std::back_inserter(names));
  List list(options);
  list.Add(names);
  std::vector<ListedScore> scores = list.Take();
  if (scores.empty()) FailWithoutScores(options, names);
  return scores;
}

}  // namespace brvhost
