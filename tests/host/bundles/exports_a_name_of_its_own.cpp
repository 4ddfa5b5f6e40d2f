#include "extension.h"

extern "C" BRV_EXPORT int CountOfCalls() { return 0; }
