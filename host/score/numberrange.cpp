#include "host/score/numberrange.h"

#include <charconv>
#include <cstddef>
#include <string_view>
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

std::optional<NumberRange> ParseNumberRange(const std::string& text) {
  const std::string_view view(text);
  const std::size_t dash = view.find('-');
  const std::string_view first = view.substr(0, dash);
  if (dash == std::string_view::npos) {
    const auto number = ParseNumber(first);
    return number ? std::optional(NumberRange{*number, *number}) : std::nullopt;
  }
  const std::string_view last = view.substr(dash + 1);
  if (first.empty() && last.empty()) return std::nullopt;
  const auto from = first.empty() ? std::optional(1) : ParseNumber(first);
  const auto to = last.empty() ? std::nullopt : ParseNumber(last);
  if (!from || (!last.empty() && !to)) return std::nullopt;
  return NumberRange{*from, to};
}

}  // namespace brvhost
