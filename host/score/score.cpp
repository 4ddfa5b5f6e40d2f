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

const std::vector<std::string>& Score::VoicesOn(int staff) const {
  const ScorePart& part = *PartOfStaff(staff);
  return part.voices[static_cast<std::size_t>(staff - part.firstStaff)];
}

}  // namespace brvhost
