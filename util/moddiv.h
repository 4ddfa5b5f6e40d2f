// Division on the line of whole numbers.
#pragma once

#include "hosttypes.h"

extern "C" {

// Divides 16-bit numbers with a remainder that is corrected by its own sign: a negative one is raised by the divisor,
// and the quotient lowered by 1. For a positive divisor that is floored division, with a remainder from 0 to divisor -
// 1; for a negative divisor and value the remainder moves further from zero. The divisor must not be 0.
//
// Examples: -7 by 3 gives quotient -3, remainder 2; -7 by -3 gives quotient 1, remainder -4.
BRV_EXPORT void UtilModDiv(short16 value, short16 divisor, short* remainder, short* quotient);

}  // extern "C"
