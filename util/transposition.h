// Key signatures, staff transpositions and intervals. documentrecords.h explains the numbers of keys and the codes of
// transpositions.
#pragma once

#include <cstdint>

#include "documentrecords.h"
#include "hosttypes.h"
#include "pitch.h"

// An interval: a number of steps, and by how much it is wider or narrower than the major or perfect interval.
//
// Upward, alteration 0 is the major or perfect interval, 1 the augmented, and -1 the minor one (the diminished one of
// unison, fourth and fifth). A downward interval is an upward one minus octaves, with the same alteration: {-1, 0} is a
// major seventh up and an octave down, which is a minor second down; {-1, -1} is a major second down.
//
// Examples: {4, 0} a perfect fifth up, {2, -1} a minor third up, {7, 0} an octave up, {-7, 0} an octave down.
struct tInterval {
  std::int16_t steps;       // diatonic steps: 0 unison, 1 second, 7 octave; negative downward
  std::int16_t alteration;  // semitones
};
static_assert(sizeof(tInterval) == 4);

// The result of BXUtilRelToAbsTCD and BXUtilAbsToRelTCD for a key without a tonic: a non-standard key or unknown mode.
inline constexpr short16 kNoTonic = -101;

// The time signature of a measure, as in the measure's record.
struct tTimeSig {
  std::int16_t beats;     // the upper number
  std::int16_t beatUnit;  // the lower one: 4 for quarter notes
};
static_assert(sizeof(tTimeSig) == 4);

extern "C" {

// Reads the key signature of a measure. Returns 1, or 0 if the host has no such measure; then the key is not changed.
BRV_EXPORT short16 BXUtilGetKeySig(short16 measure, short* keySignature);

// Reads the time signature of a measure. Returns 1, or 0 if the host has no such measure; then it is not changed.
BRV_EXPORT short16 BXUtilGetTimeSig(short16 measure, tTimeSig* timeSignature);

// Reads the transposition code of a staff. Returns 1, or 0 if the host has no such staff; then the code is not changed.
BRV_EXPORT short16 BXUtilGetStaffTrans(short16 staff, short* code);

// Gives the interval from sounding to written pitch of a staff with the given code, in the given sounding key.
//
// Example: 0x0042 gives {1, 0}: a B flat clarinet's part is written a major second above its sound.
BRV_EXPORT void BXUtilStaffTransToInterval(short16 code, short16 keySignature, tInterval* interval);

// Returns the code of the inverse of an interval: for the interval from written to sounding pitch, this is the staff's
// code. chromatic is non-zero for the chromatic form and 0 for the diatonic; a unison gives 0 in both.
//
// Example: {-1, -1}, a major second down, gives 0x0042 in the chromatic form.
BRV_EXPORT short16 BXUtilIntervalToStaffTrans(tInterval interval, short16 chromatic);

// Moves a pitch by an interval.
//
// Example: E {2, 0} up a major third {2, 0} becomes G sharp {4, 1}.
BRV_EXPORT void BXUtilTranspose(tDiaPitch* pitch, const tInterval& interval);

// Inverts an interval, so that transposing by one and then the other changes nothing. Returns the new steps.
//
// Example: a major second up {1, 0} becomes {-1, -1}, a major second down.
BRV_EXPORT short16 BXUtilInvertInterval(tInterval* interval);

// Changes a written pitch to the sounding one, on a staff with the given code, in the given sounding key.
//
// Example: with code 0x0042 in C, written C {0, 0} becomes the B flat below, {-1, -1}.
BRV_EXPORT void BXUtilStaffToAbsTCD(tDiaPitch* pitch, short16 code, short16 keySignature);

// Changes a sounding pitch to the written one: the reverse of BXUtilStaffToAbsTCD.
BRV_EXPORT void BXUtilAbsToStaffTCD(tDiaPitch* pitch, short16 code, short16 keySignature);

// Changes a pitch relative to a key, whose step 0 is the key's tonic, to the pitch itself. Returns 0, or kNoTonic; then
// the pitch is not changed.
//
// Example: in D major (2) step 0 becomes D {1, 0}, step 2 F sharp {3, 1}.
BRV_EXPORT short16 BXUtilRelToAbsTCD(tDiaPitch* pitch, short16 keySignature);

// Changes a pitch to one relative to a key: the reverse of BXUtilRelToAbsTCD.
BRV_EXPORT short16 BXUtilAbsToRelTCD(tDiaPitch* pitch, short16 keySignature);

}  // extern "C"
