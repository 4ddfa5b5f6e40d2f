#include "host/code/knownnames.h"

#include <algorithm>

namespace brvhost {

bool IsOfTheKit(std::string_view name) {
  return std::ranges::any_of(KitNames(), [name](std::string_view known) {
    return known.ends_with('*') ? name.starts_with(known.substr(0, known.size() - 1)) : name == known;
  });
}

}  // namespace brvhost
