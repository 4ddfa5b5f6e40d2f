#include "convention.h"

// Nothing but a main.
int BrevixExtensionMain(int, void*) { return 1; }
