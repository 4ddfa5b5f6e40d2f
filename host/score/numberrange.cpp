#include "host/score/numberrange.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <system_error>

namespace brvhost {
namespace {

std::optional<int> ParseNumber(std::string_view text) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size() || number < 1) return std::nullopt;
  return number;
}

}  // namespace

std::optional<NumberRange> ParseNumberRange(std::string_view text) {
  const std::size_t dash = text.find('-');
  const std::string_view first = text.substr(0, dash);
  if (dash == std::string_view::npos) {
    const auto number = ParseNumber(first);
    return number ? std::optional(NumberRange{*number, *number}) : std::nullopt;
  }
  const std::string_view last = text.substr(dash + 1);
  if (first.empty() && last.empty()) return std::nullopt;
  const auto from = first.empty() ? std::optional(1) : ParseNumber(first);
  const auto to = last.empty() ? std::nullopt : ParseNumber(last);
  if (!from || (!last.empty() && !to)) return std::nullopt;
  return NumberRange{*from, to};
}

std::vector<std::string> TextsOfList(std::string_view list) {
  std::vector<std::string> items;
  for (std::size_t start = 0; start <= list.size();) {
    const std::size_t comma = std::min(list.find(',', start), list.size());
    items.emplace_back(list.substr(start, comma - start));
    start = comma + 1;
  }
  return items;
}

}  // namespace brvhost
