// The languages of a bundle's texts.
#pragma once

#include <string>
#include <vector>

namespace brvhost {

// As their folders name them: "de" for de.lproj.
std::vector<std::string> LanguagesOf(const std::string& bundle);

}  // namespace brvhost
