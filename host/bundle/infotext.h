// Texts in a bundle's Info.plist.
#pragma once

#include <string>

namespace brvhost {

// Empty where there is no text of this name.
std::string InfoText(const std::string& bundle, const char* key);

}  // namespace brvhost
