// The modifier keys that are held now, in the bits of NSEvent's modifierFlags: Command is 0x100000.
#pragma once

unsigned long CurrentModifierFlags();
