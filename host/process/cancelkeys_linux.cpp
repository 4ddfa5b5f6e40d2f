#include <brvplatform.h>

#include "BrvEDK/Source/convention.h"
#include "host/process/cancelkeys.h"

namespace brvhost {

void HoldCancelKeys() {
  BrvPlatformSetKeyDown(kPeriodKey, true);
  BrvPlatformSetModifierFlags(kCommandModifier);
}

}  // namespace brvhost
