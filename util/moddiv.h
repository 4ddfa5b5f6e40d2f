// Division of whole numbers.
#pragma once

#include "hosttypes.h"

extern "C" {

// Divides 16-bit numbers. A negative remainder is raised by the divisor, and the quotient then lowered by 1. With a
// positive divisor this is floored division, with a remainder from 0 to divisor - 1: use no other. With a negative
// divisor and value the remainder moves further from zero. The divisor must not be 0.
//
// Examples: -7 by 3 gives quotient -3, remainder 2; -7 by -3 gives quotient 1, remainder -4.
BRV_EXPORT void UtilModDiv(short16 value, short16 divisor, short* remainder, short* quotient);

}  // extern "C"
