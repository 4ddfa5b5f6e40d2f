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
  const unsigned code = static_cast<unsigned char>(keyCode);
  return code < sizeof(KeyMap) * 8 && IsDown(code) ? 1 : 0;
}

bool EventUtilCancelInQueue() { return (CurrentModifierFlags() & kCommandModifier) != 0 && IsDown(kPeriodKey); }
