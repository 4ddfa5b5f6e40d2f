#include "convention.h"

// Code that cannot be loaded: what it calls is nowhere.
extern "C" int DefinedNowhere();

int BrevixExtensionMain(int, void*) { return DefinedNowhere(); }
