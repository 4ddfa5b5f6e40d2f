// The facts about what an extension leaves in the process. Each takes the path of the bundle, and returns what is
// wrong, or nothing.
#pragma once

#include <string>

namespace brvhost {

std::string EndsItsThreads(const std::string& path);
std::string PrintsNothing(const std::string& path);
std::string ClosesDescriptors(const std::string& path);
std::string ReleasesMemory(const std::string& path);

}  // namespace brvhost
