#include <brvplatform.h>

#include "modifierflags.h"

unsigned long CurrentModifierFlags() { return BrvPlatformModifierFlags(); }
