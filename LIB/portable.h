// Texts of the extension in the user's language, and helpers for byte strings.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include "hostrecords.h"
#include "hosttypes.h"

// A string ID names a text of the Localizable.strings of the extension's own bundle: its high 16 bits are a table's
// number, its low 16 bits an index. The key in the file is "table,index", or "index" alone for table 0; both halves are
// signed.
//
// Example: 0x4E200001 is the key "20000,1".
//
// A text that is missing from the file comes back as its key; when there is no file for any language, the host shows
// the alert "Missing Localizable.strings" as well, once per lookup. An extension whose bundle cannot be found is not
// installed right: the assertion "bundleRef != NULL" stops the process.

extern "C" {

// The text of an ID. The caller releases it; null only if there was no memory.
BRV_EXPORT CFStringRef CopyPlugInStringResource(int id);

// The text of an ID of (table, index) in the application's 8-bit encoding, cut to size - 1 bytes. Returns its length.
BRV_EXPORT short16 LoadIndString(short16 table, short16 index, char* buffer, short16 size);

// Compare without regard to case: -1, 0 or 1. Bytes are signed, so 0x80 and above sort before all ASCII and before the
// end of a string: "ab" is greater than "ab\xE9". strnicmp compares at most count bytes.
BRV_EXPORT int stricmp(const char* a, const char* b);
BRV_EXPORT int strnicmp(const char* a, const char* b, std::size_t count);

// Writes a number in decimal, into 12 bytes at most. Returns the number of characters.
BRV_EXPORT int num2str(int value, char* buffer);

}  // extern "C"

// Fills a buffer of size units with the text of an ID, cut to size - 1 units, which may be between the halves of a
// surrogate pair, and ended by a 0. It holds the empty text while the text is looked up, which an alert may show.
// Returns the buffer, or null for a size of 0, and then nothing is written.
BRV_EXPORT UniChar* PlugIn_GetStringResource(int id, UniChar* buffer, short size);

// The same in the application's 8-bit encoding: size is in bytes, and what the text leaves of the buffer is zeroed. A
// text that the encoding cannot hold, or one of more than 255 bytes, comes out empty.
BRV_EXPORT char* PlugIn_GetStringResource(int id, char* buffer, short size);
