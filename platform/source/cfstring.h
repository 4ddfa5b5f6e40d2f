// Strings: immutable runs of UTF-16 units.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <string>

namespace brvplatform {

// A new string, which the caller owns.
CFStringRef NewString(std::u16string units);

const std::u16string& UnitsOf(CFStringRef string);

// The text as UTF-8, for paths and names.
std::string Utf8Of(CFStringRef string);

bool IsString(CFTypeRef object);

}  // namespace brvplatform
