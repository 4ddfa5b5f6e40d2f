#include <cstdint>

#include "fifths.h"
#include "integerclasses.h"
#include "keysignature.h"
#include "scale.h"
#include "transposition.h"

namespace {

// The signed number in the given bits of a code.
constexpr int SignedField(int code, int firstBit, int bits) {
  const int field = code >> firstBit & ((1 << bits) - 1);
  return field >= 1 << (bits - 1) ? field - (1 << bits) : field;
}

// Whether a downward interval is a second, third, sixth or seventh, which may be major or minor; a unison, fourth or
// fifth may not. remainder is the steps modulo 7, with their sign.
bool IsDownwardMajorOrMinor(int remainder) {
  return remainder == -6 || remainder == -5 || remainder == -2 || remainder == -1;
}

tInterval DiatonicInterval(int code) {
  const int steps = SignedField(code, 0, 8);
  int alteration = SignedField(code, 8, 4);
  if (IsDownwardMajorOrMinor(steps % 7)) --alteration;
  return {static_cast<std::int16_t>(steps), static_cast<std::int16_t>(alteration)};
}

// Replaces a transposition to a key of more than six sharps or flats by its enharmonic equivalent.
void KeepKeyInSixFifths(int sharps, int* fifths, int* steps) {
  while (*fifths + sharps > 6) {
    *fifths -= 12;
    ++*steps;
  }
  while (*fifths + sharps < -6) {
    *fifths += 12;
    --*steps;
  }
}

tInterval ChromaticInterval(int code, int keySignature) {
  int fifths = SignedField(code, 0, 6);
  int steps = SignedField(code, 6, 6);
  if ((code & kKeepKey) == 0) KeepKeyInSixFifths(SharpsOfKey(keySignature), &fifths, &steps);
  return {static_cast<std::int16_t>(steps), static_cast<std::int16_t>(AlterationOfFifths(fifths))};
}

int ChromaticCode(tInterval interval) {
  const int remainder = interval.steps % 7;
  const int inOctave = remainder < 0 ? remainder + 7 : remainder;
  // How far the inverse interval moves along the circle of fifths: -2 for a second, 1 for a fourth, -1 for a fifth, and
  // 7 for each semitone that the interval is narrower.
  const int fifths = -7 * interval.alteration + (inOctave >= 3 ? 6 : 0) - kMajorToChromatic[inOctave];
  return (-interval.steps & 0x3F) << 6 | (fifths & 0x3F);
}

int DiatonicCode(tInterval interval) {
  const int alteration = -interval.alteration - (IsDownwardMajorOrMinor(interval.steps % 7) ? 1 : 0);
  return (-interval.steps & 0xFF) | (alteration & 0x0F) << 8 | kDiatonicTransposition;
}

}  // namespace

void BXUtilStaffTransToInterval(short16 code, short16 keySignature, tInterval* interval) {
  *interval = (code & kDiatonicTransposition) != 0 ? DiatonicInterval(code) : ChromaticInterval(code, keySignature);
}

short16 BXUtilIntervalToStaffTrans(tInterval interval, short16 chromatic) {
  if (interval.steps == 0 && interval.alteration == 0) return 0;
  return SignExtend16(SignExtend16(chromatic) != 0 ? ChromaticCode(interval) : DiatonicCode(interval));
}

void BXUtilAbsToStaffTCD(tDiaPitch* pitch, short16 code, short16 keySignature) {
  tInterval interval;
  BXUtilStaffTransToInterval(code, keySignature, &interval);
  BXUtilTranspose(pitch, interval);
}

void BXUtilStaffToAbsTCD(tDiaPitch* pitch, short16 code, short16 keySignature) {
  tInterval interval;
  BXUtilStaffTransToInterval(code, keySignature, &interval);
  BXUtilInvertInterval(&interval);
  BXUtilTranspose(pitch, interval);
}
