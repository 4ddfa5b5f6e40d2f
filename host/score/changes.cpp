#include "host/score/changes.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <iterator>

#include "host/xml/elementplace.h"

namespace brvhost {

std::vector<EntryChange> ChangesOf(std::string_view document, const Score& score) {
  std::vector<EntryChange> changes;
  for (const ScoreFrame& frame : score.frames) {
    for (const ScoreEntry& entry : score.EntriesOf(frame)) {
      if (entry.hidden == score.IsHiddenInDocument(entry)) continue;
      // The offset is in the place of the line until all are known.
      changes.push_back({score.NotesOf(entry).front().offset, entry.position, frame.staff, frame.measure, frame.layer,
                         entry.hidden ? 1u : 0u});
    }
  }
  std::ranges::sort(changes, {}, &EntryChange::line);
  std::vector<std::uint64_t> offsets;
  offsets.reserve(changes.size());
  std::ranges::transform(changes, std::back_inserter(offsets), &EntryChange::line);
  const std::vector<TextPlace> places = PlacesOfElements(document, offsets);
  for (std::size_t i = 0; i < changes.size(); ++i) changes[i].line = places[i].line;
  return changes;
}

std::string BytesOf(std::span<const EntryChange> changes) {
  return {reinterpret_cast<const char*>(changes.data()), changes.size_bytes()};
}

std::vector<EntryChange> ChangesFrom(std::string_view bytes) {
  std::vector<EntryChange> changes(bytes.size() / sizeof(EntryChange));
  if (!changes.empty()) std::memcpy(changes.data(), bytes.data(), changes.size() * sizeof(EntryChange));
  return changes;
}

}  // namespace brvhost
