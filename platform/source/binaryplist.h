// Property lists in the binary form: a table of objects that refer to each other by number.
#pragma once

#include <optional>
#include <string_view>

#include "propertylist.h"

namespace brvplatform {

// Takes time proportional to the file, and no stack, however its objects are nested.
std::optional<Dictionary> ParseBinary(std::string_view bytes);

}  // namespace brvplatform
