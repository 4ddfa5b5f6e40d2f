// The file with a bundle's code.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <string>

namespace brvhost {

// The path of the executable for this system; empty where there is none.
std::string ExecutableOf(CFBundleRef bundle);

}  // namespace brvhost
