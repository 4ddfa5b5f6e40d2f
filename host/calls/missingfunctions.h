// What an extension asked for that this program does not have.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "host/calls/hostfunctionindex.h"

namespace brvhost {

// A mark for each function of the table. In memory that an extension may garble.
struct MissingFunctions {
  std::array<std::uint8_t, kHostFunctions> isAskedFor;
};

// From now on this process marks them in `place`, which stays. Where calls cannot be heard, nothing is marked.
void MarkMissingFunctionsIn(MissingFunctions& place);

// The names of those that are marked in any of these places, in the order of the table.
std::vector<std::string> NamesOfMissing(std::initializer_list<const MissingFunctions*> places);

// "LegerLines asked for 2 functions that brvhost does not have: BX_A, BX_B".
std::string MissingText(const std::string& extension, const std::vector<std::string>& names);

}  // namespace brvhost
