#include "host/score/numberruns.h"

#include <algorithm>

namespace brvhost {

std::vector<NumberRun> Merged(std::vector<NumberRun> runs) {
  std::ranges::sort(runs, {}, &NumberRun::first);
  std::vector<NumberRun> merged;
  for (const NumberRun& run : runs) {
    if (merged.empty() || run.first - 1 > merged.back().last) {
      merged.push_back(run);
    } else {
      merged.back().last = std::max(merged.back().last, run.last);
    }
  }
  return merged;
}

bool Contains(const std::vector<NumberRun>& runs, int number) {
  return std::ranges::any_of(runs,
                             [number](const NumberRun& run) { return run.first <= number && number <= run.last; });
}

std::string TextOf(const std::vector<NumberRun>& runs) {
  std::string text;
  for (const NumberRun& run : runs) {
    text += (text.empty() ? "" : ", ") + std::to_string(run.first);
    if (run.last != run.first) text += "-" + std::to_string(run.last);
  }
  return text;
}

}  // namespace brvhost
