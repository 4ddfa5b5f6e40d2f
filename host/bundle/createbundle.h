// Opens bundles by their paths.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <string>

namespace brvhost {

// The bundle in the folder of that absolute path, which the caller releases, or null when there is none.
CFBundleRef CreateBundle(const std::string& path);

}  // namespace brvhost
