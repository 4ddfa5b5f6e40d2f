// The facts about which functions of its host an extension asks for. Each takes the path of the bundle, and returns
// what is wrong, or nothing.
#pragma once

#include <string>

namespace brvhost {

std::string AsksForKnownFunctions(const std::string& path);

}  // namespace brvhost
