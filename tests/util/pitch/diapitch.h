// Comparison and printing of pitches in tests.
#pragma once

#include <ostream>

#include "pitch.h"

inline bool operator==(const tDiaPitch& a, const tDiaPitch& b) {
  return a.step == b.step && a.alteration == b.alteration;
}

inline std::ostream& operator<<(std::ostream& out, const tDiaPitch& pitch) {
  return out << "{step " << pitch.step << ", alteration " << pitch.alteration << "}";
}
