// The chief header of BrvEDK: every service of the host that an extension can call.
//
// Each function below is the kit's; it looks up the host's function of the same name when it is first called, keeps it
// for the life of the process, and passes the call on. The contract that all of them share:
//
// - The host's bundle must be bound before the first call; the host does it by way of the extension's main
//   (hostbundle.h). A function that was called earlier stays without its host function for good.
// - Where the host has no such function nothing is called, and the result is the default that the comment names:
//   [default 0] is 0, null or no. Nothing else is ever reported by the kit.
// - version is kBrvVersion, the version of the interface that the extension was built for. It goes to the host as
//   it is.
// - 16-bit and 8-bit arguments are cut to their class and extended, whatever stands in their upper bits; 16-bit results
//   come back extended (hosttypes.h). A 16-bit result is non-zero for success or yes unless the comment says otherwise.
// - All calls are made on the host's main thread. [main-thread]
// - What a pointer points to stays the property of the side that made it, unless the comment says otherwise.
//
// Where a comment says that arguments are passed through, their meaning is between the extension and its host: the kit
// looks at none of them.
#pragma once

#include <cstdint>

#include "hostrecords.h"
#include "hosttypes.h"

extern "C" {

// Counters and flags of the kit, open to the extension. The kit reads none of the counters but BrevixEditDepth.

BRV_EXPORT extern std::int32_t LoadedTGFCounter;  // calls of BX_LoadTGF less calls of BX_FreeTGF
BRV_EXPORT extern std::int32_t MassEditDepth;  // mass edits started and not ended; below 0 after an end without a start
BRV_EXPORT extern std::int32_t BrevixEditDepth;  // edits started and neither ended nor cancelled; never below 0

// Whether a rest gets a placeholder note when its frame goes back to the host: 1 at first, 0 for no.
BRV_EXPORT extern std::uint8_t CanAddNoteRecordToRests;

// Writes a line to the console, formatted as printf does it, for debugging. Output beyond 4095 characters is cut.
//
// Example:
//   DbgPrintF("measure %d has %d entries", measure, frame->entryCount);
BRV_EXPORT void DbgPrintF(const char* format, ...) __attribute__((format(printf, 1, 2)));

// The calls to the host, each with its contract.
#include "hostprototypes.inc"

}  // extern "C"
