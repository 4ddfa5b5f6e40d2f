// The layers of a region's staves that are shown.
#pragma once

#include <string>
#include <vector>

#include "host/score/numberrange.h"
#include "host/score/numberruns.h"
#include "host/score/score.h"

namespace brvhost {

// Staves next to one another.
struct ShownStaves {
  NumberRun staves;
  std::vector<NumberRun> layers;  // that are shown on all of them, from 1; all when empty
};

// The staves with these layers. Throws InputError for a range that starts at a layer that none of the staves has.
std::vector<ShownStaves> WithLayers(const std::vector<NumberRange>& layers, const std::vector<NumberRun>& staves,
                                    const Score& score);

// Those of the staves that have any of these voices, with the layers of these. Throws InputError for a voice that none
// of the staves has.
std::vector<ShownStaves> WithVoices(const std::vector<std::string>& voices, const std::vector<NumberRun>& staves,
                                    const Score& score);

}  // namespace brvhost
