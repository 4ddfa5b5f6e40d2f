// Scores and regions that a host may have open, as random as that allows.
#pragma once

#include "host/fuzz/randomnumbers.h"
#include "host/score/region.h"
#include "host/score/score.h"

namespace brvhost {

// Mostly a small one, and now and then one with as many measures or staves as there can be. Without notes and
// voices, which an extension's process does not get, either.
Score RandomScore(RandomNumbers& random);

// Staves, measures, positions and layers of a score. Of a score without measures, the whole.
Block RandomBlock(RandomNumbers& random, const Score& score);

}  // namespace brvhost
