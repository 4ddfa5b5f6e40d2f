// Calls AppKit through the Objective-C runtime: a single call is no reason for a second language.
#include "modifierflags.h"

#include <objc/message.h>
#include <objc/runtime.h>

unsigned long CurrentModifierFlags() {
  using ClassProperty = unsigned long (*)(Class, SEL);
  const auto send = reinterpret_cast<ClassProperty>(objc_msgSend);
  return send(objc_getClass("NSEvent"), sel_registerName("modifierFlags"));
}
