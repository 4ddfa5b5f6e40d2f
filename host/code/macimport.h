// An import of code for macOS, by the number that says where it comes from.
#pragma once

#include <cstdint>
#include <string_view>

#include "host/code/codeimage.h"

namespace brvhost {

// The libraries count from 1. What may be defined in the code itself is no import: that is left out.
void AddImportOfMac(std::string_view name, std::int64_t origin, bool mayBeMissing, CodeImage& image);

}  // namespace brvhost
