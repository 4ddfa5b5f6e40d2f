// The parts of a key signature's number.
#pragma once

#include "integerclasses.h"
#include "transposition.h"

inline bool IsStandardKey(short16 keySignature) { return SignExtend16(keySignature) < kNonStandardKey; }

// The number of sharps, negative for flats.
//
// Compatibility: a non-standard key, which has no such number, counts with its whole value. Documents hold
// transpositions that were respelt by it.
inline int SharpsOfKey(short16 keySignature) {
  if (!IsStandardKey(keySignature)) return SignExtend16(keySignature);
  return static_cast<signed char>(keySignature);
}
