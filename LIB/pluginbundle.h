// The extension's own bundle.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

// Returns the bundle that this code was loaded from. It is found once and kept for the life of the process. If there is
// none, an assertion stops the process.
CFBundleRef GetPluginBundle();
