// Names in code for macOS.
#pragma once

#include <string_view>

namespace brvhost {

// Without the underscore that is put before each name of the source.
constexpr std::string_view NameOfMac(std::string_view name) { return name.substr(name.starts_with('_') ? 1 : 0); }

}  // namespace brvhost
