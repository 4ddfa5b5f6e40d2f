#include "convention.h"

// Instead of the kit's main.
extern "C" BRV_EXPORT int DoesNotBind(int, void*) __asm__(BRV_SYMBOL("main"));
extern "C" int DoesNotBind(int, void*) { return 0; }
