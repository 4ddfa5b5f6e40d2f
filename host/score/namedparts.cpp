#include "host/score/namedparts.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <string_view>
#include <utility>

#include "host/score/numberrange.h"
#include "host/text/blanks.h"
#include "host/text/foldedcase.h"
#include "host/text/inputerror.h"
#include "host/text/nearest.h"
#include "host/text/printable.h"
#include "host/text/shortlist.h"

namespace brvhost {
namespace {

using Runs = std::vector<NumberRun>;

// By which it can be named.
std::vector<std::string> NamesOf(const ScorePart& part) {
  std::vector<std::string> names;
  for (const std::string* const name : {&part.names.name, &part.names.abbreviation, &part.id}) {
    if (!name->empty()) names.push_back(*name);
  }
  return names;
}

// The staves of parts by their names, and by these without regard to case.
class PartIndex {
 public:
  explicit PartIndex(const Score& score) {
    for (const ScorePart& part : score.parts) {
      const NumberRun staves = {part.firstStaff, part.firstStaff + part.staves - 1};
      for (const std::string& name : NamesOf(part)) {
        byName_[name].push_back(staves);
        byFoldedName_[FoldedCase(name)].push_back(staves);
      }
    }
  }

  // None where no part has the name.
  Runs StavesOf(std::string_view name) const {
    const auto found = byName_.find(std::string(name));
    if (found != byName_.end()) return found->second;
    const auto folded = byFoldedName_.find(FoldedCase(name));
    return folded == byFoldedName_.end() ? Runs() : folded->second;
  }

 private:
  std::map<std::string, Runs> byName_;
  std::map<std::string, Runs> byFoldedName_;
};

[[noreturn]] void ThrowNoPart(std::string_view name, const Score& score) {
  std::vector<std::string> shown;
  std::vector<std::string> names;
  for (const ScorePart& part : score.parts) {
    std::vector<std::string> own = NamesOf(part);
    if (!own.empty()) shown.push_back(own.front());
    std::ranges::move(own, std::back_inserter(names));
  }
  std::ranges::sort(names);
  names.erase(std::unique(names.begin(), names.end()), names.end());
  const std::string nearest = NearestName(name, names);
  throw InputError(fmt::format("the score has no part \"{}\"{}{}", Excerpt(name),
                               nearest.empty() ? "" : fmt::format("; the nearest is {}", nearest),
                               shown.empty() ? "" : "; it has " + ShortList(shown)));
}

Runs StavesOfText(std::string_view text, const PartIndex& index, const Score& score) {
  Runs staves = index.StavesOf(WithoutBlanks(text));
  if (!staves.empty()) return staves;
  for (const std::string& item : TextsOfList(text)) {
    const std::string_view name = WithoutBlanks(item);
    const Runs ofItem = index.StavesOf(name);
    if (ofItem.empty()) ThrowNoPart(name, score);
    std::ranges::copy(ofItem, std::back_inserter(staves));
  }
  return staves;
}

}  // namespace

std::vector<NumberRun> StavesOfParts(const std::vector<std::string>& texts, const Score& score) {
  const PartIndex index(score);
  Runs staves;
  for (const std::string& text : texts) std::ranges::copy(StavesOfText(text, index, score), std::back_inserter(staves));
  return Merged(std::move(staves));
}

}  // namespace brvhost
