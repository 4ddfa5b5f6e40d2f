#include "host/process/cancelkeys.h"

#include <brvplatform.h>

#include "BrvEDK/Source/convention.h"

namespace brvhost {

void HoldCancelKeys() {
  BrvPlatformSetKeyDown(kPeriodKey, true);
  BrvPlatformSetModifierFlags(kCommandModifier);
}

}  // namespace brvhost
