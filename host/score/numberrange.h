// Ranges of numbers, as the user writes them.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brvhost {

// Numbers from 1, ends included; an open end is null.
struct NumberRange {
  int first = 1;
  std::optional<int> last;

  bool IsReversed() const { return last && *last < first; }
};

// "3", "2-5", "2-" or "-5". Null for anything else.
std::optional<NumberRange> ParseNumberRange(std::string_view text);

// What stands between the commas of a list; one text where there is none.
std::vector<std::string> TextsOfList(std::string_view list);

}  // namespace brvhost
