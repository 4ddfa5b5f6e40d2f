// What a keeper has reported of a score before its result.
#pragma once

#include <string>
#include <vector>

namespace brvhost {

struct Findings {
  std::string member;  // of the archive that has the score; empty for a plain file
  std::string region;  // in JSON; empty where it is not known
  std::vector<std::string> warnings;
  std::vector<std::string> missingFunctions;  // that the extension asked for
  std::string changes;                        // the bytes of those that are to be listed next
};

}  // namespace brvhost
