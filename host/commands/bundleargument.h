// The extension that the command line names.
#pragma once

#include <string>

#include "host/commands/options.h"

namespace brvhost {

// The path of the bundle that the argument BUNDLE means. Throws UsageError for no text or a score in its place, and
// BundleError for anything else that is no bundle.
std::string BundleOf(const Options& options);

}  // namespace brvhost
