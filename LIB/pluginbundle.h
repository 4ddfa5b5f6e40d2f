// The extension's own bundle.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

// The bundle that this code was loaded from; found once, and kept for the life of the process. Without one an assertion
// stops the process.
CFBundleRef GetPluginBundle();
