#include "host/calls/missingfunctions.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <cstddef>

#include "host/calls/hostfunctions.h"

namespace brvhost {

std::vector<std::string> NamesOfMissing(std::initializer_list<const MissingFunctions*> places) {
  std::vector<std::string> names;
  for (std::size_t index = 0; index < kHostFunctions; ++index) {
    const auto isMarked = [index](const MissingFunctions* place) { return place->isAskedFor[index] != 0; };
    if (std::ranges::any_of(places, isMarked)) names.emplace_back(HostFunctions()[index].name);
  }
  return names;
}

std::string MissingText(const std::string& extension, const std::vector<std::string>& names) {
  return fmt::format("{} asked for {} that brvhost does not have: {}", extension,
                     names.size() == 1 ? "a function" : std::to_string(names.size()) + " functions",
                     fmt::join(names, ", "));
}

}  // namespace brvhost
