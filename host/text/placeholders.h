// The places of a text where values are put in.
#pragma once

#include <map>
#include <string>
#include <string_view>

namespace brvhost {

// The conversions of a format, as of printf, by the number of the value from 1: {{1, "d"}, {2, "@"}} for both "%d of
// %@" and "%2$@: %1$d". A blank after the sign of percent is none: it stands in texts.
std::map<int, std::string> PlaceholdersIn(std::string_view text);

}  // namespace brvhost
