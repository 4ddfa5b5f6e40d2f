#include "host/score/summary.h"

#include <map>
#include <utility>

namespace brvhost {

void EntryCounts::Add(const ScoreEntry& entry) { ++(entry.isRest ? rests : entry.noteElements > 1 ? chords : notes); }

EntryCounts CountsOf(const Score& score) {
  EntryCounts counts;
  for (const ScoreEntry& entry : score.entries) counts.Add(entry);
  return counts;
}

std::vector<LayersOfStaves> LayersOf(const Score& score) {
  std::vector<LayersOfStaves> groups;
  std::map<std::vector<std::string>, std::size_t> groupOfVoices;
  for (int staff = 1; staff <= score.staves; ++staff) {
    const std::vector<std::string>& voices = score.VoicesOn(staff);
    const auto [group, isNew] = groupOfVoices.emplace(voices, groups.size());
    if (isNew) groups.push_back({{}, voices});
    groups[group->second].staves.push_back({staff, staff});
  }
  for (LayersOfStaves& group : groups) group.staves = Merged(std::move(group.staves));
  return groups;
}

}  // namespace brvhost
