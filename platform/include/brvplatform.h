// What a host on Linux sets in the platform: the state of the keyboard and the application's text encoding. On macOS
// these belong to the system, and there is no such header.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#ifdef __cplusplus
extern "C" {
#else
#include <stdbool.h>
#endif

// Sets whether a key is down; codes from 128 up are ignored. Safe to call from a signal handler.
BRVPLATFORM_EXPORT void BrvPlatformSetKeyDown(unsigned char keyCode, bool down);

// The modifier keys that are down, in the bits of NSEvent's modifierFlags: Command is 0x100000. Safe to call from a
// signal handler.
BRVPLATFORM_EXPORT void BrvPlatformSetModifierFlags(unsigned long flags);
BRVPLATFORM_EXPORT unsigned long BrvPlatformModifierFlags(void);

// Sets the 8-bit encoding that GetApplicationTextEncoding returns from now on.
BRVPLATFORM_EXPORT void BrvPlatformSetApplicationTextEncoding(CFStringEncoding encoding);

#ifdef __cplusplus
}
#endif
