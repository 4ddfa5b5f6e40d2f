#include "convention.h"

// Instead of the kit's main.
int BrevixExtensionMain(int, void*) { return 0; }
