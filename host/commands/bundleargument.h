// The extension that the command line names.
#pragma once

#include <string>
#include <vector>

#include "host/commands/options.h"

namespace brvhost {

// The path of the bundle that the argument BUNDLE means. Throws UsageError for no text or a score in its place, and
// BundleError for anything else that is no bundle.
std::string BundleOf(const Options& options);
// Likewise, of the arguments of a command that takes several.
std::vector<std::string> BundlesOf(const Options& options);

}  // namespace brvhost
