// File URLs.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <string>

namespace brvplatform {

CFURLRef NewFileURL(std::string path);

const std::string& PathOf(CFURLRef url);

// For people to read: a path need not be text, and each part of it that is none gives a U+FFFD.
std::u16string DescriptionOf(const std::string& path);

}  // namespace brvplatform
