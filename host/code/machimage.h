// Executables for macOS, for one processor.
#pragma once

#include <string_view>

#include "host/code/codeimage.h"

namespace brvhost {

bool IsMach(std::string_view bytes);

// For these, `bytes` is the beginning of such a file, and the whole of it. Both throw CodeError.
CodeProcessor ProcessorOfMach(std::string_view bytes);
CodeImage MachImage(std::string_view bytes);

}  // namespace brvhost
