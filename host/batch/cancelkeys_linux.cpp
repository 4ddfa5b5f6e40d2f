#include <brvplatform.h>

#include "host/batch/cancelkeys.h"

namespace brvhost {
namespace {

constexpr unsigned char kPeriodKey = 47;
constexpr unsigned long kCommandFlag = 0x100000;

}  // namespace

void HoldCancelKeys() {
  BrvPlatformSetKeyDown(kPeriodKey, true);
  BrvPlatformSetModifierFlags(kCommandFlag);
}

}  // namespace brvhost
