// Texts of the extension in the user's language, and helpers for byte strings.
//
// A string ID (stringids.h) names a text in the Localizable.strings of the extension's own bundle: its high 16 bits are
// the number of a table, its low 16 bits an index. The key in the file is "table,index", or only "index" for table 0.
// Both halves are signed.
//
// Example: 0x4E200001 is the key "20000,1".
//
// If a text is missing from the file, its key is returned instead. If there is no file for any language, the host also
// shows the alert "Missing Localizable.strings", once for each lookup. If the extension's bundle cannot be found, the
// extension is not installed correctly, and the assertion "bundleRef != NULL" stops the process. An executable that is
// loaded by its absolute path, but is in no bundle, never returns from the first lookup: always load it from its
// bundle.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include "hostrecords.h"
#include "hosttypes.h"

extern "C" {

// Returns the text of an ID, which the caller releases; null only if memory runs out.
BRV_EXPORT CFStringRef CopyPlugInStringResource(int id);

// Writes the text of (table, index) in the application's 8-bit encoding, cut to size - 1 bytes. Returns its length.
BRV_EXPORT short16 LoadIndString(short16 table, short16 index, char* buffer, short16 size);

// Compare two texts without regard to case. Return -1, 0 or 1. Bytes are signed, so those from 0x80 up come before all
// of ASCII and before the end of a string: "ab" is greater than "ab\xE9". strnicmp compares at most count bytes.
BRV_EXPORT int stricmp(const char* a, const char* b);
BRV_EXPORT int strnicmp(const char* a, const char* b, std::size_t count);

// Writes a number in decimal, which takes up to 12 bytes with the final zero. Returns the number of characters.
BRV_EXPORT int num2str(int value, char* buffer);

}  // extern "C"

// Writes the text of an ID into a buffer of size units, cut to size - 1 units (perhaps between the halves of a
// surrogate pair) and ended by a 0. During the lookup, when an alert may be shown, the buffer holds the empty text.
// Returns the buffer, or null for a size of 0 or less; then nothing is written.
BRV_EXPORT UniChar* PlugIn_GetStringResource(int id, UniChar* buffer, short size);

// Writes the text of an ID in the application's 8-bit encoding, likewise. size is in bytes, and the rest of the buffer
// is zeroed. A text that the encoding cannot hold, or one of more than 255 bytes, comes out empty.
BRV_EXPORT char* PlugIn_GetStringResource(int id, char* buffer, short size);
