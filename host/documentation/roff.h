// Text in the language of manual pages.
#pragma once

#include <string>

namespace brvhost {

// With the characters as they are, and what is between backquotes in bold letters.
std::string RoffOf(const std::string& text);

// The same in lines, with a line break after each.
std::string RoffLinesOf(const std::string& text);

// A long text of the help: its headings begin sections.
std::string RoffOfProse(const std::string& text);

}  // namespace brvhost
