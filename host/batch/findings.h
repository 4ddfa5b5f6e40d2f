// What a keeper has reported of a score before its result.
#pragma once

#include <string>

namespace brvhost {

struct Findings {
  std::string member;   // of the archive that has the score; empty for a plain file
  std::string changes;  // the bytes of those that are to be listed next
};

}  // namespace brvhost
