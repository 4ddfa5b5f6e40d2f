#include "keyboard.h"

#include <Carbon/Carbon.h>

#include "convention.h"
#include "modifierflags.h"

namespace {

bool IsDown(unsigned keyCode) {
  KeyMap keys;
  GetKeys(keys);
  const auto* bytes = reinterpret_cast<const unsigned char*>(keys);
  return (bytes[keyCode / 8] >> keyCode % 8 & 1) != 0;
}

}  // namespace

int KbdUtilKeyIsDown(char keyCode) {
  const int code = static_cast<signed char>(keyCode);
  return code >= 0 && IsDown(static_cast<unsigned>(code)) ? 1 : 0;
}

bool EventUtilCancelInQueue() { return (CurrentModifierFlags() & kCommandModifier) != 0 && IsDown(kPeriodKey); }
