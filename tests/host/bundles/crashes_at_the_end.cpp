#include <cstdlib>

#include "extension.h"

void BrevixExtensionTerminate() { std::abort(); }
