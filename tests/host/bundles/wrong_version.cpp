#include "extension.h"

uint32 BrevixExtensionVersion() { return 0x18000000; }
