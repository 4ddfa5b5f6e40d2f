// The facts about a bundle's executables, none of which is run. Each takes the path of the bundle, and returns what is
// wrong, or nothing.
#pragma once

#include <string>

namespace brvhost {

std::string FitsItsFolders(const std::string& path);
std::string RunsOnEveryMac(const std::string& path);

}  // namespace brvhost
