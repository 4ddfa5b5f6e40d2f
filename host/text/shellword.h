// Arguments in commands that messages show.
#pragma once

#include <string>
#include <string_view>

namespace brvhost {

// The argument as a shell takes it: in single quotes, where it would not take it for one word as it is.
std::string ShellWord(std::string_view argument);

}  // namespace brvhost
