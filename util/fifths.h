// The circle of fifths.
#pragma once

// The alteration of the pitch that is `fifths` fifths above C: 0 from F (-1) to B (5), 1 from F sharp (6) on, -1 down
// to C flat (-7).
//
// Compatibility: at -8 and every seventh number below, the result is one too low: F flat comes out as F double flat.
// Documents were written with that rounding.
inline int AlterationOfFifths(int fifths) {
  const int next = fifths + 1;
  return next / 7 - (next < 0 ? 1 : 0);
}
