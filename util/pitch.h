// Diatonic pitches and ranges, their chromatic numbers, and their text.
#pragma once

#include <cstdint>

#include "hosttypes.h"

// A diatonic pitch: a staff step and its alteration. It is passed by value as one 32-bit word, with the step in the low
// half.
//
// Examples: middle C is {0, 0}, the F sharp above it {3, 1}, the B flat below it {-1, -1}.
struct tDiaPitch {
  std::int16_t step;        // diatonic steps from middle C: 1 is the D above it, 7 the C an octave up, -1 the B below
  std::int16_t alteration;  // semitones: 1 sharp, -1 flat, 2 double sharp
};
static_assert(sizeof(tDiaPitch) == 4);

// Two pitches and all between them.
struct tDiaRange {
  tDiaPitch low;   // the lower pitch
  tDiaPitch high;  // the higher one
};
static_assert(sizeof(tDiaRange) == 8);

// The steps that pitch names cover: C0 to G9 if middle C is C4.
inline constexpr std::int16_t kMinStep = -28;
inline constexpr std::int16_t kMaxStep = 39;

// Results of the functions that read text.
inline constexpr short16 kBadPitchName = -13;    // not a pitch name, or outside C0 to G9
inline constexpr short16 kBadPitchNumber = -14;  // a note number above 127 or below 0
inline constexpr short16 kNoRangeSeparator = -101;

// Modes of BXUtilSetPitchFormatting that are not an octave number.
inline constexpr short16 kPitchNumbers = 32767;
inline constexpr short16 kPitchesAsInDocument = -32768;

extern "C" {

// Returns the pitch that is so many semitones above middle C. Black keys are spelt C#, D#, F#, G# and Bb.
//
// Example: 10 gives {6, -1}, the B flat above middle C; -1 gives {-1, 0}.
BRV_EXPORT tDiaPitch BXUtilChromToAbsTCD(short16 chromatic);

// Returns the number of semitones from middle C to a pitch, cut to 16 bits.
//
// Example: {7, 0} gives 12; {6, -1} gives 10.
BRV_EXPORT short16 BXUtilAbsTCDToChrom(const tDiaPitch& pitch);

// Sets how the functions below write and read pitches, for the whole process. Until the first call they use note
// numbers.
//
//   kPitchNumbers         note numbers: middle C is 60
//   kPitchesAsInDocument  as set in the open document's preferences
//   any other mode        note names, with mode as the number of the octave that begins at middle C
//
// Returns 0, or 1 if the document's preferences cannot be read, or shift octave numbers by a part of an octave; then
// nothing changes.
//
// Example: after BXUtilSetPitchFormatting(3) middle C is C3.
BRV_EXPORT short16 BXUtilSetPitchFormatting(short16 mode);

// Writes a pitch as text: C4, F#3, Bb2, C##4, C-1, or a number such as 60, ended by a zero. bufferSize is not used: the
// buffer must hold the whole text, which has one sign for each semitone of the alteration. The alteration, without its
// sign, and 8 bytes more are always enough.
BRV_EXPORT void BXUtilFormatPitch(tDiaPitch pitch, char* text, short16 bufferSize);

// Reads a pitch from text. A name is an upper-case or lower-case letter, at most one accidental (# or b), and an octave
// of one digit; the rest is ignored. Numbers are read as by atoi.
//
// Returns 0, kBadPitchName or kBadPitchNumber; on failure the pitch is not changed.
//
// Example: with middle C as C4, "f#3" gives {-4, 1}.
BRV_EXPORT short16 BXUtilParsePitch(const char* text, tDiaPitch* pitch);

// Writes a range as its two pitches with a slash between: C4/G5. bufferSize is not used: the buffer must hold the whole
// text. The two alterations, without their signs, and 16 bytes more are always enough.
BRV_EXPORT void BXUtilFormatRange(const tDiaRange& range, char* text, short16 bufferSize);

// Reads a range from text, and puts the lower pitch first. Of each side, up to 31 characters are read.
//
// Returns 0, kNoRangeSeparator, or the result of BXUtilParsePitch for the first side that it refuses. On failure the
// range is kMinStep to kMaxStep.
//
// Example: "G5/C4" gives {{0, 0}, {11, 0}}.
BRV_EXPORT short16 BXUtilParseRange(const char* text, tDiaRange* range);

}  // extern "C"
