// The part of Carbon that the product calls, for Linux.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#ifdef __cplusplus
extern "C" {
#endif

// A map of 128 keys: key code k is bit k mod 8 of byte k / 8.
typedef UInt32 KeyMap[4];

// Writes the keys that are down now.
BRVPLATFORM_EXPORT void GetKeys(KeyMap keys);

// Returns the 8-bit encoding of the application: Mac Roman unless the host has set another.
BRVPLATFORM_EXPORT CFStringEncoding GetApplicationTextEncoding(void);

#ifdef __cplusplus
}
#endif
