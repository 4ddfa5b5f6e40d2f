// printf over UTF-16 text: the conversions of printf, %@ for an object, %S and %C for units, positions (%2$d), widths
// and precisions from arguments.
#pragma once

#include <stdarg.h>

#include <optional>
#include <string>
#include <string_view>

namespace brvplatform {

// Returns nothing if it is not a format.
std::optional<std::u16string> Format(std::u16string_view format, va_list arguments);

}  // namespace brvplatform
