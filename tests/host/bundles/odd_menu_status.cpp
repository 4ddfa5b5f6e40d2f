#include "extension.h"

int BrevixExtensionGetMenuStatus() { return -3; }
