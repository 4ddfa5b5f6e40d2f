// Whole files in memory.
#pragma once

#include <string>

namespace brvhost {

// Throws InputError with the system's reason.
std::string ReadFile(const std::string& path);

}  // namespace brvhost
