// Text for people, from the encodings of the interface to the terminal's UTF-8.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <cstddef>
#include <string>

namespace brvhost {

// The units up to the first 0 unit, at most `limit` of them. A lone surrogate becomes U+FFFD.
std::string Utf8FromUnits(const UniChar* units, std::size_t limit);
std::string Utf8FromUnits(const UniChar* zeroTerminated);

std::string Utf8FromString(CFStringRef string);

// Text in the application's 8-bit encoding.
std::string Utf8FromApplicationText(const char* text);

}  // namespace brvhost
