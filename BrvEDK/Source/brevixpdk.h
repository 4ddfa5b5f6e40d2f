// The main header of BrvEDK: every service of the host that an extension can call.
//
// Each function below belongs to the kit. When first called, it looks up the host's function of the same name, keeps it
// for the life of the process, and passes the call on. All of them share this contract:
//
// - The host's bundle must be bound before the first call. The host does this by calling the extension's main
//   (convention.h). A function that is called earlier never finds its host function.
// - If the host has no such function, nothing is called, and the result is the default that the comment gives:
//   [default 0] is 0, null or no. The kit reports nothing else.
// - version is kBrvVersion, the version of the interface that the extension was built for. It is passed to the host
//   unchanged.
// - 16-bit and 8-bit arguments are cut to their class and extended, whatever is in their upper bits; 16-bit results are
//   returned extended; this is called widening (hosttypes.h). A 16-bit result is non-zero for success or yes unless the
//   comment says otherwise.
// - All calls are made on the host's main thread, unless the host allows others. [main-thread]
// - Memory stays the property of the side that allocated it, unless the comment says otherwise.
//
// Where a comment says that arguments are passed through, their meaning is between the extension and its host, and the
// kit does not look at them.
#pragma once

#include <cstdint>

#include "hostrecords.h"
#include "hosttypes.h"

extern "C" {

// Counters and flags of the kit, which extensions may read and set. Of the counters, the kit itself reads only
// BrevixEditDepth.

BRV_EXPORT extern std::int32_t LoadedTGFCounter;  // calls of BX_LoadTGF minus calls of BX_FreeTGF
BRV_EXPORT extern std::int32_t MassEditDepth;     // mass edits started minus mass edits ended; may be below 0
BRV_EXPORT extern std::int32_t BrevixEditDepth;   // edits that are open; the kit never lowers it below 0

// Whether a rest gets a placeholder note when its frame goes back to the host. 1 unless an extension sets it to 0.
BRV_EXPORT extern std::uint8_t CanAddNoteRecordToRests;

// Writes a line to the console for debugging, formatted as by printf. A line is cut after 4095 characters.
//
// Example:
//   DbgPrintF("measure %d has %d entries", measure, frame->entryCount);
BRV_EXPORT void DbgPrintF(const char* format, ...) __attribute__((format(printf, 1, 2)));

// The calls to the host, each with its contract.
#include "hostprototypes.inc"

}  // extern "C"
