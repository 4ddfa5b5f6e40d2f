// What a score holds, summed up.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "host/score/numberruns.h"
#include "host/score/score.h"

namespace brvhost {

// Entries by their kind.
struct EntryCounts {
  std::size_t notes = 0;   // of one note element
  std::size_t chords = 0;  // of several
  std::size_t rests = 0;

  void Add(const ScoreEntry& entry);
  std::size_t All() const { return notes + chords + rests; }

  bool operator==(const EntryCounts&) const = default;
};

EntryCounts CountsOf(const Score& score);

// Staves whose layers are those of the same voices. Only layers that hold something have a voice.
struct LayersOfStaves {
  std::vector<NumberRun> staves;
  std::vector<std::string> voices;  // of the file, by layer
};

// All staves, each once, in the order of the first staff of each group.
std::vector<LayersOfStaves> LayersOf(const Score& score);

}  // namespace brvhost
