// Files for macOS that hold the code for several processors.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "host/code/codeprocessor.h"

namespace brvhost {

bool IsUniversal(std::string_view bytes);

// Where the code for a processor is.
struct UniversalPart {
  CodeProcessor processor;
  std::uint64_t at;
  std::uint64_t size;
};

// As the file's head lists them; they may lie outside of it. Throws CodeError.
std::vector<UniversalPart> PartsOf(std::string_view bytes);

}  // namespace brvhost
