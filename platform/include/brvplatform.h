// What a host on Linux tells the platform: the state of the keyboard and the application's text encoding. On macOS
// these belong to the system, and there is no such header.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#ifdef __cplusplus
extern "C" {
#else
#include <stdbool.h>
#endif

// Presses or releases a key; codes from 128 up are ignored. Safe to call from a signal handler.
BRVPLATFORM_EXPORT void BrvPlatformSetKeyDown(unsigned char keyCode, bool down);

// The modifier keys that are held, as NSEvent's modifierFlags gives them: Command is 0x100000. Safe to call from a
// signal handler.
BRVPLATFORM_EXPORT void BrvPlatformSetModifierFlags(unsigned long flags);
BRVPLATFORM_EXPORT unsigned long BrvPlatformModifierFlags(void);

// The 8-bit encoding that GetApplicationTextEncoding reports from now on.
BRVPLATFORM_EXPORT void BrvPlatformSetApplicationTextEncoding(CFStringEncoding encoding);

#ifdef __cplusplus
}
#endif
