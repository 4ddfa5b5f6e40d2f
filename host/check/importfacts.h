// The facts about what a bundle's executables for macOS import, none of which is run. Each takes the path of the
// bundle, and returns what is wrong, or nothing.
#pragma once

#include <string>

namespace brvhost {

std::string ImportsFromMacOS(const std::string& path);
std::string ImportsKnownNames(const std::string& path);

}  // namespace brvhost
