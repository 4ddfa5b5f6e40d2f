// Wrappers of dialog handlers, from the days when a host could be other than a Mach-O program. In a Mach-O host a
// handler needs no wrapping.
#pragma once

#include "hosttypes.h"

extern "C" {

// Returns the handler unchanged. In a host that is no Mach-O program an alert says that this should not happen.
BRV_EXPORT void* NewFF_DialogHandlerProc(void* proc);

// Frees nothing; the same alert.
BRV_EXPORT void DisposeFF_DialogHandlerProc(void* proc);

}  // extern "C"
