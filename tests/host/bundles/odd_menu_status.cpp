#include "extension.h"

int BrevixExtensionGetMenuStatus(void*) { return -3; }
