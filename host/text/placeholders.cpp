#include "host/text/placeholders.h"

#include <algorithm>
#include <charconv>
#include <cstddef>

namespace brvhost {
namespace {

constexpr std::string_view kDigits = "0123456789";

// What the text starts with of these characters, which are taken off it.
std::string_view Take(std::string_view& text, std::string_view characters) {
  const std::size_t length = std::min(text.find_first_not_of(characters), text.size());
  const std::string_view taken = text.substr(0, length);
  text.remove_prefix(length);
  return taken;
}

// The number in "2$"; 0 where there is none.
int TakePosition(std::string_view& text) {
  std::string_view rest = text;
  const std::string_view digits = Take(rest, kDigits);
  int position = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), position);
  if (position == 0 || !rest.starts_with('$')) return 0;
  text = rest.substr(1);
  return position;
}

}  // namespace

std::map<int, std::string> PlaceholdersIn(std::string_view text) {
  constexpr std::string_view kConversions = "@dDiuUxXoOfFeEgGaAcCsSp";
  std::map<int, std::string> placeholders;
  int next = 1;
  for (std::size_t at = text.find('%'); at != std::string_view::npos; at = text.find('%')) {
    text.remove_prefix(at + 1);
    const int position = TakePosition(text);
    Take(text, "-+#0.123456789");
    std::string conversion(Take(text, "hlqLztj"));
    if (text.empty()) break;
    const char last = text.front();
    if (last == '%') text.remove_prefix(1);
    if (kConversions.find(last) == std::string_view::npos) continue;
    placeholders[position == 0 ? next++ : position] = conversion + last;
  }
  return placeholders;
}

}  // namespace brvhost
