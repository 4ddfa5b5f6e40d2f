// Ranges of numbers, as the user writes them.
#pragma once

#include <optional>
#include <string>

namespace brvhost {

// Numbers from 1, ends included; an open end is null.
struct NumberRange {
  int first = 1;
  std::optional<int> last;

  bool IsReversed() const { return last && *last < first; }
};

// "3", "2-5", "2-" or "-5". Null for anything else.
std::optional<NumberRange> ParseNumberRange(const std::string& text);

}  // namespace brvhost
