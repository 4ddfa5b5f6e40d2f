// Why a bundle has no code to load.
#pragma once

#include <string>

namespace brvhost {

// What it lacks, and the systems for which it has an executable, for the end of a message: "has no executable for Linux
// on arm64; it has one for macOS". Where it has files for this system, the reason is that it names none of them. The
// path is that of a folder.
std::string MissingExecutable(const std::string& bundle);

}  // namespace brvhost
