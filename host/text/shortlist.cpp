#include "host/text/shortlist.h"

#include <algorithm>
#include <cstddef>

#include "host/text/printable.h"

namespace brvhost {
namespace {

constexpr std::size_t kMost = 6;

}  // namespace

std::string ShortList(const std::vector<std::string>& texts) {
  std::string list;
  const std::size_t shown = std::min(texts.size(), kMost);
  for (std::size_t i = 0; i < shown; ++i) list += (i == 0 ? "" : ", ") + Excerpt(texts[i]);
  return texts.size() > shown ? list + " and " + std::to_string(texts.size() - shown) + " more" : list;
}

}  // namespace brvhost
