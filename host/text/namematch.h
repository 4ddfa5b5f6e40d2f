// How well a name fits a longer one.
#pragma once

#include <string_view>

namespace brvhost {

// From the worst to the best.
enum class NameMatch : char { kNone = '0', kContained, kStart, kWhole };

// Whether the name is in the text, starts it or is all of it, without regard to case. An empty name fits nothing.
NameMatch MatchOf(std::string_view name, std::string_view text);

}  // namespace brvhost
