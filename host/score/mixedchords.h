// Chords of which only some notes have print-leger="no". An entry has one bit: they count as shown.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "host/score/score.h"

namespace brvhost {

struct MixedChord {
  int staff = 0;
  int measure = 0;
  int layer = 0;
  std::int32_t position = 0;
  std::uint64_t offset = 0;  // of the start tag of its first note
};

// Those of the document, as it was read, in the order of the frames.
std::vector<MixedChord> MixedChordsOf(const Score& score);

// One warning of all of them, with the place of the document's first; null where there are none.
std::optional<ScoreWarning> WarningOfMixedChords(std::string_view document, const Score& score);

}  // namespace brvhost
