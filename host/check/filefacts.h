// The facts about a bundle's files. No code of the bundle is run. Each takes the path of the bundle, and returns what
// is wrong, or nothing.
#pragma once

#include <string>

namespace brvhost {

std::string HasInfoKeys(const std::string& path);
std::string HasDevelopmentRegion(const std::string& path);
std::string HasReadableTexts(const std::string& path);
std::string HasAllTranslations(const std::string& path);
std::string KeepsPlaceholders(const std::string& path);

}  // namespace brvhost
