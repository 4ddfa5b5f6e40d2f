// Property lists in the old text form, which .strings files have: "key" = "value"; with comments between.
#pragma once

#include <optional>
#include <string_view>

#include "propertylist.h"

namespace brvplatform {

std::optional<Dictionary> ParseOldStyle(std::u16string_view text);

}  // namespace brvplatform
