// Small scores for tests, and what is in them.
#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "host/score/musicxml.h"
#include "host/score/score.h"

namespace brvhost {

inline std::string Note(const std::string& rest = "", const std::string& attributes = "") {
  return "<note" + attributes + "><duration>1</duration>" + rest + "</note>";
}

inline std::string Measure(const std::string& content) { return "<measure number=\"1\">" + content + "</measure>"; }

// A partwise score of one part.
inline std::string Partwise(const std::string& measures) {
  return "<score-partwise version=\"4.0\"><part-list><score-part id=\"P1\"/></part-list><part id=\"P1\">" + measures +
         "</part></score-partwise>";
}

// The score of one measure.
inline Score ScoreOf(const std::string& measureContent) { return ReadMusicXml(Partwise(Measure(measureContent))); }

// A score of one part without music, with the voices of each staff.
inline Score WithVoicesOnStaves(std::vector<std::vector<std::string>> voices) {
  Score score;
  score.staves = static_cast<int>(voices.size());
  score.parts.emplace_back();
  score.parts[0].staves = score.staves;
  score.parts[0].voices = std::move(voices);
  return score;
}

struct EntryFacts {
  int staff;
  int measure;
  int layer;
  int position;
  int notes;
  bool operator==(const EntryFacts&) const = default;
};

inline void PrintTo(const EntryFacts& entry, std::ostream* out) {
  *out << "{staff " << entry.staff << ", measure " << entry.measure << ", layer " << entry.layer << ", position "
       << entry.position << ", notes " << entry.notes << "}";
}

// All entries, by staff, layer, measure and position.
inline std::vector<EntryFacts> EntriesOf(const Score& score) {
  std::vector<EntryFacts> facts;
  for (const ScoreFrame& frame : score.frames) {
    for (const ScoreEntry& entry : score.EntriesOf(frame)) {
      facts.push_back({frame.staff, frame.measure, frame.layer, entry.position, entry.noteElements});
    }
  }
  return facts;
}

}  // namespace brvhost
