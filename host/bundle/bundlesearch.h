// Extensions found by what the user calls them.
#pragma once

#include <string>

namespace brvhost {

// The path of the bundle that the user means: the path itself where something is there or it has a slash, otherwise
// that of the first bundle of this name, with or without its ending, in BundleFolders. Throws BundleError, with what
// was searched and the nearest name, when there is none.
std::string PathOfBundle(const std::string& nameOrPath);

}  // namespace brvhost
