// The part of a score that an extension works on, as the user names it.
#pragma once

#include <optional>
#include <string>

#include "BrvEDK/Source/hostrecords.h"
#include "host/score/fraction.h"
#include "host/score/score.h"

namespace brvhost {

// Numbers from 1, ends included; an open end is null.
struct NumberRange {
  int first = 1;
  std::optional<int> last;
};

// "3", "2-5", "2-" or "-5". Null for anything else, and for a range that ends before it starts.
std::optional<NumberRange> ParseNumberRange(const std::string& text);

struct RegionRequest {
  std::optional<NumberRange> staves;
  std::optional<NumberRange> measures;
  std::optional<Fraction> startAt;  // quarters from the barline of the first measure
  std::optional<Fraction> endAt;    // quarters from the barline of the last measure, included
  bool all = false;                 // the whole score

  bool IsEmpty() const { return !all && !staves && !measures && !startAt && !endAt; }
};

EREGION WholeScore(const Score& score);

// The region, or null when none was asked for. A range that reaches beyond the score ends with it; one that starts
// beyond it throws InputError.
std::optional<EREGION> RegionOf(const RegionRequest& request, const Score& score);

}  // namespace brvhost
