#include "host/bundle/loadingreason.h"

#include <string_view>

#include "host/bundle/otherprocessor.h"

namespace brvhost {

std::string LoadingReason(const std::string& executable, const std::string& systems) {
  constexpr std::string_view kUndefined = "undefined symbol: ";
  if (IsForAnotherProcessor(executable)) return executable + " is for another processor";
  const std::size_t undefined = systems.find(kUndefined);
  if (undefined == std::string::npos) return systems;
  const std::size_t start = undefined + kUndefined.size();
  const std::string name = systems.substr(start, systems.find_first_of(", \t(", start) - start);
  return executable + " uses " + name + ", which neither it nor a library that it needs has";
}

}  // namespace brvhost
