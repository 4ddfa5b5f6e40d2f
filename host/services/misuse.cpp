#include "host/services/misuse.h"

#include <fmt/format.h>

#include <algorithm>

namespace brvhost {

void Misuse::Note(const char* what) {
  const auto found = std::ranges::find(noted_, what, &std::pair<const char*, std::uint64_t>::first);
  if (found != noted_.end()) {
    ++found->second;
  } else {
    noted_.emplace_back(what, 1);
  }
}

std::vector<std::string> Misuse::Texts() const {
  std::vector<std::string> texts;
  for (const auto& [what, count] : noted_)
    texts.push_back(count == 1 ? what : fmt::format("{} ({} times)", what, count));
  return texts;
}

}  // namespace brvhost
