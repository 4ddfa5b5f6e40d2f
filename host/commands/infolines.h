// What `brvhost info` reports in more than a number.
#pragma once

#include <string>
#include <vector>

#include "host/score/score.h"

namespace brvhost {

// The layers of the staves that hold something, with the file's voices where these are others than the layers' own
// numbers: "staves 1, 3-4: 1, 2 (voice 5)". Staves that are alike share a line. Layers count from 1.
std::vector<std::string> LayerLines(const Score& score);

}  // namespace brvhost
