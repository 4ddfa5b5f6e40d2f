// What `brvhost info` reports in more than a number.
#pragma once

#include <string>
#include <vector>

#include "host/score/score.h"

namespace brvhost {

// The layers of the staves that hold something, with the file's voices where these are others than the layers' own
// numbers: "staves 1, 3-4: 1, 2 (voice 5)". Staves that are alike share a line. Layers count from 1.
std::vector<std::string> LayerLines(const Score& score);

// How the numbers that are printed go with the order of the measures, "324-339: (0), 1-15", a line for each sequence of
// them; none where all are printed and each is its measure's order.
std::vector<std::string> PrintedLines(const Score& score);

}  // namespace brvhost
