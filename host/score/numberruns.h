// Sets of numbers, as runs of consecutive ones.
#pragma once

#include <string>
#include <vector>

namespace brvhost {

// Both ends included.
struct NumberRun {
  int first = 1;
  int last = 1;

  bool operator==(const NumberRun&) const = default;
};

// The same numbers in ascending order: runs that overlap or follow one another become one.
std::vector<NumberRun> Merged(std::vector<NumberRun> runs);

bool Contains(const std::vector<NumberRun>& runs, int number);

// "1, 3, 5-8".
std::string TextOf(const std::vector<NumberRun>& runs);

}  // namespace brvhost
