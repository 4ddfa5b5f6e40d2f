#include "extension.h"

int BrevixExtensionEnumerate_UTF16(void*, int, MenuItemTexts*) { return 0; }
