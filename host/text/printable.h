// Text from outside, for the terminal.
#pragma once

#include <string>
#include <string_view>

namespace brvhost {

// The text on one line, in UTF-8, without anything that a terminal would obey: control characters and line breaks
// become blanks, and what is not UTF-8 becomes U+FFFD.
std::string Printable(std::string_view text);

// The same, cut after some sixty characters: for text within a message.
std::string Excerpt(std::string_view text);

}  // namespace brvhost
