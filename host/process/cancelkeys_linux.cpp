#include "host/process/cancelkeys.h"

#include <brvplatform.h>

#include "BrvEDK/Source/convention.h"

namespace brvhost {

void HoldCancelKeys() {
  BrvPlatformSetKeyDown(kPeriodKey, true);
  BrvPlatformSetModifierFlags(kCommandModifier);
}

void ReleaseCancelKeys() {
  BrvPlatformSetKeyDown(kPeriodKey, false);
  BrvPlatformSetModifierFlags(0);
}

}  // namespace brvhost
