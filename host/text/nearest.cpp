#include "host/text/nearest.h"

#include <algorithm>
#include <cctype>
#include <cstddef>

namespace brvhost {
namespace {

// More is no name that somebody typed, and would take long to compare.
constexpr std::size_t kMaxLength = 100;
// Of which the start of a name is told from a chance letter or two.
constexpr std::size_t kMinStart = 3;

std::string InSmallLetters(std::string_view text) {
  std::string small(text);
  std::ranges::transform(small, small.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return small;
}

// How many characters have to be changed, added, removed, or swapped with their neighbours.
std::size_t Distance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> beforeLast(b.size() + 1);
  std::vector<std::size_t> last(b.size() + 1);
  std::vector<std::size_t> row(b.size() + 1);
  for (std::size_t j = 0; j <= b.size(); ++j) row[j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    beforeLast.swap(last);
    last.swap(row);
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t replaced = last[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
      row[j] = std::min({last[j] + 1, row[j - 1] + 1, replaced});
      const bool areSwapped = i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1];
      if (areSwapped) row[j] = std::min(row[j], beforeLast[j - 2] + 1);
    }
  }
  return row[b.size()];
}

// The only name that starts so; empty where there are several or none.
std::string OnlyNameThatStarts(const std::string& start, const std::vector<std::string>& names) {
  if (start.size() < kMinStart) return "";
  const auto startsSo = [&](const std::string& name) { return InSmallLetters(name).starts_with(start); };
  const auto found = std::ranges::find_if(names, startsSo);
  return std::ranges::count_if(names, startsSo) == 1 ? *found : "";
}

}  // namespace

std::string NearestName(std::string_view mistyped, const std::vector<std::string>& names) {
  if (mistyped.empty() || mistyped.size() > kMaxLength) return "";
  const std::string wanted = InSmallLetters(mistyped);
  std::string nearest;
  std::size_t least = std::max<std::size_t>(wanted.size() / 3, 1) + 1;
  for (const std::string& name : names) {
    if (name.size() > kMaxLength) continue;
    const std::size_t distance = Distance(wanted, InSmallLetters(name));
    if (distance == least) nearest.clear();
    if (distance >= least) continue;
    least = distance;
    nearest = name;
  }
  return nearest.empty() ? OnlyNameThatStarts(wanted, names) : nearest;
}

}  // namespace brvhost
