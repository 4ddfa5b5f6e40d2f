// How long the rest of a batch takes, as an estimate that does not jump about.
#pragma once

#include <chrono>
#include <optional>
#include <string>

namespace brvhost {

class TimeLeft {
 public:
  // After that time, with that many of the scores done: "3 min left", or nothing while nobody can know.
  std::string After(std::chrono::milliseconds elapsed, int done, int total);

 private:
  std::optional<std::chrono::milliseconds> end_;  // as it was foreseen last
};

}  // namespace brvhost
