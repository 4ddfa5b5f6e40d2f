// Why a bundle has no code to load.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <string>

namespace brvhost {

// What it lacks, and the systems for which it has an executable, for the end of a message: "has no executable for Linux
// on arm64; it has one for macOS". Where it has files for this system, what is wrong with the Info.plist that should
// name one. The path is that of the bundle's folder.
std::string MissingExecutable(CFBundleRef bundle, const std::string& path);

}  // namespace brvhost
