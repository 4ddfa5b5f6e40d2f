// Wrappers of dialog handlers, from the time when some hosts were not Mach-O programs. In a Mach-O host a handler needs
// no wrapper.
#pragma once

#include "hosttypes.h"

extern "C" {

// Returns the handler unchanged. In a host that is not a Mach-O program, an alert reports that this should not happen.
BRV_EXPORT void* NewFF_DialogHandlerProc(void* proc);

// Frees nothing. Shows the same alert in such a host.
BRV_EXPORT void DisposeFF_DialogHandlerProc(void* proc);

}  // extern "C"
