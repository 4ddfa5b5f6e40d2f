// Gathers the notes of one measure of one part, and puts them in order when it ends.
#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

#include "host/score/score.h"

namespace brvhost {

// A note element as the document has it.
struct NoteElement {
  ScoreNote note;
  std::int32_t position = 0;
  int staff = 1;  // within the part
  int layer = 0;
  bool isRest = false;
};

class MeasureBuilder {
 public:
  // A note or rest that starts an entry, and a chord if AddToChord follows.
  void AddNote(const NoteElement& element);
  // A note that sounds with the one before. Where the chord has no note on its staff yet, or twelve, it starts an
  // entry.
  void AddToChord(const NoteElement& element);

  // Appends what was gathered to the score, frame by frame, and forgets it. The staves in `frames` are counted within
  // the part. Throws InputError where a frame would have more entries than it can count.
  void Finish(int measure, Score& score, std::vector<ScoreFrame>& frames);

 private:
  struct PendingEntry {
    std::int32_t position;
    std::uint16_t staff;
    std::uint16_t layer;
    bool isRest;
    std::uint32_t order;  // of arrival
  };
  struct PendingNote {
    std::uint32_t entry;  // by its order of arrival
    ScoreNote note;
  };
  // The entry of a chord on one staff.
  struct ChordEntry {
    std::uint64_t chord = 0;  // by number, from 1
    std::uint32_t entry = 0;
    int notes = 0;
  };

  void StartEntry(const NoteElement& element);
  // Orders the entries by frame and position, those of one place as they arrived, and the notes like their entries.
  void Order();

  std::vector<PendingEntry> entries_;
  std::vector<PendingNote> notes_;
  std::uint64_t chord_ = 0;                               // that is being read
  std::unordered_map<int, ChordEntry> lastChordEntries_;  // by staff
  std::vector<std::uint32_t> rank_;                       // of each entry, by its order of arrival
};

}  // namespace brvhost
