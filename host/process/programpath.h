// Where this program is.
#pragma once

#include <string>

namespace brvhost {

// The path of the file that this process runs, with no symbolic link in it; empty where the system does not tell.
std::string ProgramPath();

}  // namespace brvhost
