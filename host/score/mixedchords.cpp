#include "host/score/mixedchords.h"

#include <fmt/format.h>

#include <algorithm>

#include "host/text/inputerror.h"
#include "host/xml/elementplace.h"

namespace brvhost {
namespace {

bool IsMixed(std::span<const ScoreNote> notes) {
  const auto isLikeTheFirst = [&notes](const ScoreNote& note) { return note.IsHidden() == notes.front().IsHidden(); };
  return !std::ranges::all_of(notes, isLikeTheFirst);
}

}  // namespace

std::vector<MixedChord> MixedChordsOf(const Score& score) {
  std::vector<MixedChord> chords;
  for (const ScoreFrame& frame : score.frames) {
    for (const ScoreEntry& entry : score.EntriesOf(frame)) {
      const auto notes = score.NotesOf(entry);
      if (!IsMixed(notes)) continue;
      chords.push_back({frame.staff, frame.measure, frame.layer, entry.position, notes.front().offset});
    }
  }
  return chords;
}

std::optional<ScoreWarning> WarningOfMixedChords(std::string_view document, const Score& score) {
  const std::vector<MixedChord> chords = MixedChordsOf(score);
  if (chords.empty()) return std::nullopt;
  const TextPlace place = PlaceOfElement(document, std::ranges::min_element(chords, {}, &MixedChord::offset)->offset);
  return ScoreWarning{
      place.line, place.column,
      fmt::format("chords of which only some notes have print-leger=\"no\": {}, the first of them here. "
                  "They count as shown. Hiding them puts it on all of their notes; hiding and then "
                  "showing them, on none",
                  chords.size())};
}

}  // namespace brvhost
