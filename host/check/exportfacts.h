// The facts about what a bundle's executables export, none of which is run. Each takes the path of the bundle, and
// returns what is wrong, or nothing.
#pragma once

#include <string>

namespace brvhost {

std::string ExportsForEachSystem(const std::string& path);
std::string ExportsNothingElse(const std::string& path);

}  // namespace brvhost
