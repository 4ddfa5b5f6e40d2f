// Text in XML as it is written.
#pragma once

#include <string>
#include <string_view>

namespace brvhost {

// For an element or an attribute in double quotes: on one line, with entities for what would be markup, and without
// the characters that no XML document may have.
std::string XmlOf(std::string_view text);

}  // namespace brvhost
