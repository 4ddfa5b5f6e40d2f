// The facts about scores of unusual sizes. Each takes the path of the bundle, and returns what is wrong, or nothing.
#pragma once

#include <string>

namespace brvhost {

std::string WorksWithoutEntries(const std::string& path);
std::string WorksOnOneMeasure(const std::string& path);
std::string WorksOnMostMeasures(const std::string& path);
std::string WorksOnMostStaves(const std::string& path);

}  // namespace brvhost
