// What is wrong with the files that a bundle's texts are in: "key" = "text"; with comments.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brvhost {

struct TextFault {
  std::size_t line;
  std::string what;  // a clause for people
};

// The first place at which a file is none of texts. What has other values than texts is right, as far as that is known.
std::optional<TextFault> FirstFaultIn(std::string_view text);

// The same of a file. One that is not in UTF-8, or is a property list in another form, is right.
std::optional<TextFault> FirstFaultOf(const std::string& path);

// The first fault of each Localizable.strings of a bundle, "path:line: what is wrong".
std::vector<std::string> FaultsInTexts(const std::string& bundle);

}  // namespace brvhost
