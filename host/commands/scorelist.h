// The scores that the command line names.
#pragma once

#include <string>
#include <vector>

#include "host/commands/options.h"

namespace brvhost {

struct ListedScore {
  std::string path;
  // Its path from the folder that it was found in; the name of its file where it was named itself.
  std::string name;
};

// Those that are named, in the order in which they are; then those of --files-from. In the place of a folder, with
// --recursive, are the scores in it that are not named elsewhere. Throws UsageError where there is none.
std::vector<ListedScore> ScoresOf(const Options& options);

}  // namespace brvhost
