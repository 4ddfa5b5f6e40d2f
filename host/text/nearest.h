// What somebody may have meant who mistyped a name.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brvhost {

// The name that the mistyped one is nearest to, with capital letters as good as small ones: at most a third of its
// characters are wrong, missing, too many, or in the place of their neighbours; or it is the start of only one name.
// Empty where none is near, or two are as near.
std::string NearestName(std::string_view mistyped, const std::vector<std::string>& names);

}  // namespace brvhost
