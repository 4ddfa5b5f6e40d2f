// What a host on Linux sets in the platform: the state of the keyboard, the application's text encoding, and what
// functions of bundles are found. On macOS these belong to the system, and there is no such header.
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

// Gets a key of a property list and its text, or null for what is no text. Both belong to the list.
typedef void (*BrvPlatformVisitor)(void* context, CFStringRef key, CFStringRef text);

// Reads a property list, such as a file of texts, and hands out each key with its text, in the order of the keys. False
// where the file cannot be read or is no such list; nothing is handed out then.
BRVPLATFORM_EXPORT bool BrvPlatformReadPropertyList(const char* path, BrvPlatformVisitor visit, void* context);

// Finds the function of that name of a bundle, whose executable has it at that address, or null. Must throw nothing.
typedef void* (*BrvPlatformFunctionFinder)(void* context, CFBundleRef bundle, const char* name, void* address);

// From now on CFBundleGetFunctionPointerForName returns what the finder returns; with null, the address again. Not
// while another thread looks a function up.
BRVPLATFORM_EXPORT void BrvPlatformSetFunctionFinder(BrvPlatformFunctionFinder finder, void* context);

#ifdef __cplusplus
}
#endif
