// The part of a score that an extension works on, as the user names it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "BrvEDK/Source/hostrecords.h"
#include "host/score/fraction.h"
#include "host/score/measurenumbers.h"
#include "host/score/numberrange.h"
#include "host/score/numberruns.h"
#include "host/score/score.h"

namespace brvhost {

// No range is reversed, and the region does not start after its end, as far as that is known without a score. Empty
// lists are of all that there is.
struct RegionRequest {
  std::vector<NumberRange> staves;
  std::vector<std::string> parts;  // instead of staves: names, or lists of names
  std::vector<MeasureRange> measures;
  std::optional<Fraction> startAt;  // quarters from the barline of the first measure
  std::optional<Fraction> endAt;    // quarters from the barline of the last measure, included
  std::vector<NumberRange> layers;  // the only ones that are shown
  std::vector<std::string> voices;  // instead of layers, by their names in the file
  bool all = false;                 // the whole score

  bool IsEmpty() const {
    return !all && staves.empty() && parts.empty() && measures.empty() && !startAt && !endAt && layers.empty() &&
           voices.empty();
  }
};

// Staves and measures next to one another, which an extension can work on at one go.
struct Block {
  EREGION region{};
  std::vector<NumberRun> layers;  // that are shown, from 1; all when empty
};

// The nearest position; the last one for a number too large for a position.
std::int32_t PositionAt(const Fraction& quarters);

EREGION WholeScore(const Score& score);

// The region as blocks, by staves and then by measures: one for each run of staves and each run of measures. None when
// no region was asked for. The first position counts in the first measure of all, the last one in the last.
//
// A range that reaches beyond the score ends with it, as one range may serve many scores; the position in a last
// measure that is not there does not count. Staves that have none of the voices are left out. Throws InputError for a
// range that starts beyond the score, for a part, a position, a layer or a voice that is not there, and for a region
// that starts after its end.
std::vector<Block> BlocksOf(const RegionRequest& request, const Score& score);

}  // namespace brvhost
