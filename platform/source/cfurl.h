// File URLs.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <filesystem>

namespace brvplatform {

CFURLRef NewFileURL(std::filesystem::path path);

const std::filesystem::path& PathOf(CFURLRef url);

}  // namespace brvplatform
