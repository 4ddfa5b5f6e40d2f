// Lists of choices in messages.
#pragma once

#include <string>
#include <vector>

namespace brvhost {

// "a, b, c", and of many only the first: "a, b, c, d, e, f and 7 more". Long texts are cut.
std::string ShortList(const std::vector<std::string>& texts);

}  // namespace brvhost
