// Removes the blanks of XML around a word.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace brvhost {

inline std::string_view WithoutBlanks(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\n";
  const std::size_t first = std::min(text.find_first_not_of(kBlanks), text.size());
  text.remove_prefix(first);
  return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

}  // namespace brvhost
