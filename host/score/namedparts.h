// Parts as the user names them.
#pragma once

#include <string>
#include <vector>

#include "host/score/numberruns.h"
#include "host/score/score.h"

namespace brvhost {

// The staves of the parts that the texts name by name, abbreviation or ID: a text is one name, or several with commas
// between them. A name is taken as it is written, or, where no part has it, without regard to case; all parts that have
// it are meant. Throws InputError for a name that no part has.
std::vector<NumberRun> StavesOfParts(const std::vector<std::string>& texts, const Score& score);

}  // namespace brvhost
