// The part of a score that an extension works on, as the user names it.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "BrvEDK/Source/hostrecords.h"
#include "host/score/fraction.h"
#include "host/score/numberrange.h"
#include "host/score/score.h"

namespace brvhost {

// No range is reversed, and the region does not start after its end, as far as that is known without a score.
struct RegionRequest {
  std::optional<NumberRange> staves;
  std::optional<NumberRange> measures;
  std::optional<Fraction> startAt;  // quarters from the barline of the first measure
  std::optional<Fraction> endAt;    // quarters from the barline of the last measure, included
  std::vector<int> layers;          // the only ones that are shown, from 0; all when empty
  bool all = false;                 // the whole score

  bool IsEmpty() const { return !all && !staves && !measures && !startAt && !endAt && layers.empty(); }
};

// The nearest position; the last one for a number too large for a position.
std::int32_t PositionAt(const Fraction& quarters);

EREGION WholeScore(const Score& score);

// The region, or null when none was asked for. A range that reaches beyond the score ends with it, as one range may
// serve many scores; the position in a last measure that is not there does not count. Throws InputError for a start,
// a position or a layer that the score does not have, and for a region that starts after its end.
std::optional<EREGION> RegionOf(const RegionRequest& request, const Score& score);

}  // namespace brvhost
