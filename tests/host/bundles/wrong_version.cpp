#include "extension.h"

std::uint32_t BrevixExtensionVersion() { return 0x18000000; }
