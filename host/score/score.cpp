#include "host/score/score.h"

#include <algorithm>
#include <iterator>

namespace brvhost {

bool Score::IsHiddenInDocument(const ScoreEntry& entry) const {
  return std::ranges::all_of(NotesOf(entry), &ScoreNote::IsHidden);
}

const ScorePart* Score::PartOfStaff(int staff) const {
  const auto after = std::ranges::upper_bound(parts, staff, {}, &ScorePart::firstStaff);
  if (after == parts.begin() || staff > staves) return nullptr;
  return &*std::prev(after);
}

}  // namespace brvhost
