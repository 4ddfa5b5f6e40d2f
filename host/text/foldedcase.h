// Text for comparisons without regard to case.
#pragma once

#include <string>
#include <string_view>

namespace brvhost {

// The same for texts that differ in case alone, or in how they are written in Unicode (a letter with its accent, "I"
// and the Roman numeral). In UTF-8, like the text.
std::string FoldedCase(std::string_view text);

}  // namespace brvhost
