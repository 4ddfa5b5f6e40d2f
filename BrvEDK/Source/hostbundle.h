// The host's bundle, in which every host function is looked up.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include "hosttypes.h"

// Null until InitializeGlobals has found the host. Never released.
extern CFBundleRef gBrevixBundle;

extern "C" {

// Binds the host: the bundle with its identifier, or else the main bundle of the process. Returns 0, or -1 if there is
// neither. Once it has returned 0, later calls keep the bundle. [main-thread]
BRV_EXPORT short16 InitializeGlobals();

// Returns the host's bundle, or null before InitializeGlobals. Do not release it.
BRV_EXPORT CFBundleRef GetBrevixBundleRef();

}  // extern "C"
