// What is in a folder.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace brvhost {

// The names of all that is in the folder, in the order of their bytes, without "." and ".."; null, with errno, where it
// cannot be read.
std::optional<std::vector<std::string>> NamesIn(const std::string& folder);

}  // namespace brvhost
