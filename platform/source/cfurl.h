// File URLs.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <string>

namespace brvplatform {

CFURLRef NewFileURL(std::string path);

const std::string& PathOf(CFURLRef url);

// For people to read. A path need not be valid text; each part that is not gives a U+FFFD.
std::u16string DescriptionOf(const std::string& path);

}  // namespace brvplatform
