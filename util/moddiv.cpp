#include "moddiv.h"

#include "integerclasses.h"

void UtilModDiv(short16 value, short16 divisor, short* remainder, short* quotient) {
  const int by = SignExtend16(divisor);
  int rest = SignExtend16(value) % by;
  int times = SignExtend16(value) / by;
  // Compatibility: the sign of the divisor plays no part. Extensions that divide by a negative number have these
  // results in their documents.
  if (rest < 0) {
    rest += by;
    --times;
  }
  *remainder = static_cast<short>(rest);
  *quotient = static_cast<short>(times);
}
