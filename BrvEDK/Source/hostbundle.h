// The host's bundle, in which every host function is looked up.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include "hosttypes.h"

// The name of a C symbol as the assembler has it.
#define BRV_TEXT_OF(prefix) #prefix
#define BRV_TEXT(prefix) BRV_TEXT_OF(prefix)
#define BRV_SYMBOL(name) BRV_TEXT(__USER_LABEL_PREFIX__) name

// Null until InitializeGlobals has found the host; never released.
extern CFBundleRef gBrevixBundle;

extern "C" {

// Binds the host: the bundle with its identifier, else the main bundle of the process. Returns 0, or -1 if there is
// neither; once it has returned 0, later calls keep the bundle. [main-thread]
BRV_EXPORT short16 InitializeGlobals();

// The host's bundle, or null before InitializeGlobals. The reference stays the kit's.
BRV_EXPORT CFBundleRef GetBrevixBundleRef();

// What the host calls first, under the symbol name "main": binds the host's bundle. Returns 1 if it is bound, else 0;
// with an argc of 0 or a null argv nothing is bound. C++ gives a function of the name main no such arguments, hence the
// name.
BRV_EXPORT int BrevixExtensionMain(int argc, void* argv) __asm__(BRV_SYMBOL("main"));

}  // extern "C"
