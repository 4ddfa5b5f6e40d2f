#include "modifierflags.h"

#include <brvplatform.h>

unsigned long CurrentModifierFlags() { return BrvPlatformModifierFlags(); }
