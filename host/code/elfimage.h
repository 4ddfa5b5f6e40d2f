// Executables for Linux.
#pragma once

#include <string_view>

#include "host/code/codeimage.h"

namespace brvhost {

bool IsElf(std::string_view bytes);

// For these, `bytes` is the beginning of such a file, and the whole of it. Both throw CodeError.
CodeProcessor ProcessorOfElf(std::string_view bytes);
// With its exports.
CodeImage ElfImage(std::string_view bytes);

}  // namespace brvhost
