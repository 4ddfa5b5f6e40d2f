#include "host/score/measurebuilder.h"

#include <algorithm>
#include <tuple>

#include "BrvEDK/Source/hostrecords.h"
#include "host/text/inputerror.h"

namespace brvhost {

void MeasureBuilder::AddNote(const NoteElement& element) {
  ++chord_;
  StartEntry(element);
}

void MeasureBuilder::AddToChord(const NoteElement& element) {
  ChordEntry& last = lastChordEntries_[element.staff];
  if (last.chord != chord_ || last.notes == EXENTRY::kMaxNotes) return StartEntry(element);
  ++last.notes;
  notes_.push_back({last.entry, element.note});
}

void MeasureBuilder::StartEntry(const NoteElement& element) {
  const auto order = static_cast<std::uint32_t>(entries_.size());
  entries_.push_back({element.position, static_cast<std::uint16_t>(element.staff),
                      static_cast<std::uint16_t>(element.layer), element.isRest, order});
  notes_.push_back({order, element.note});
  lastChordEntries_[element.staff] = {chord_, order, 1};
}

void MeasureBuilder::Order() {
  const auto key = [](const PendingEntry& entry) {
    return std::make_tuple(entry.staff, entry.layer, entry.position, entry.order);
  };
  if (!std::ranges::is_sorted(entries_, {}, key)) std::ranges::sort(entries_, {}, key);
  rank_.resize(entries_.size());
  for (std::uint32_t i = 0; i < entries_.size(); ++i) rank_[entries_[i].order] = i;
  const auto rankOf = [this](const PendingNote& note) { return rank_[note.entry]; };
  if (!std::ranges::is_sorted(notes_, {}, rankOf)) std::ranges::stable_sort(notes_, {}, rankOf);
}

void MeasureBuilder::Finish(int measure, Score& score, std::vector<ScoreFrame>& frames) {
  Order();
  auto note = notes_.begin();
  for (std::uint32_t i = 0; i < entries_.size(); ++i) {
    const PendingEntry& pending = entries_[i];
    if (i == 0 || pending.staff != entries_[i - 1].staff || pending.layer != entries_[i - 1].layer) {
      frames.push_back({.staff = pending.staff,
                        .measure = static_cast<std::uint16_t>(measure),
                        .layer = pending.layer,
                        .firstEntry = static_cast<std::uint32_t>(score.entries.size())});
    }
    if (++frames.back().entryCount > INT16_MAX) throw InputError("more than 32767 notes of one voice in a measure");
    ScoreEntry entry{.position = pending.position,
                     .firstNote = static_cast<std::uint32_t>(score.notes.size()),
                     .isRest = pending.isRest};
    for (; note != notes_.end() && rank_[note->entry] == i; ++note) {
      score.notes.push_back(note->note);
      ++entry.noteElements;
    }
    entry.hidden = score.IsHiddenInDocument(entry);
    score.entries.push_back(entry);
  }
  entries_.clear();
  notes_.clear();
  ++chord_;
}

}  // namespace brvhost
