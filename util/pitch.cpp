#include "pitch.h"

#include <array>

#include "integerclasses.h"
#include "moddiv.h"
#include "scale.h"

namespace {

// The spelling of each semitone above C.
//
// Compatibility: the tenth is B flat, where the other black keys are sharps. Files that extensions wrote have pitches
// in this spelling.
constexpr std::array<tDiaPitch, 12> kChromaticToMajor = {
    {{0, 0}, {0, 1}, {1, 0}, {1, 1}, {2, 0}, {3, 0}, {3, 1}, {4, 0}, {4, 1}, {5, 0}, {6, -1}, {6, 0}}};

}  // namespace

tDiaPitch BXUtilChromToAbsTCD(short16 chromatic) {
  short semitone;
  short octave;
  UtilModDiv(chromatic, 12, &semitone, &octave);
  const tDiaPitch& spelling = kChromaticToMajor[semitone];
  return {static_cast<std::int16_t>(7 * octave + spelling.step), spelling.alteration};
}

short16 BXUtilAbsTCDToChrom(const tDiaPitch& pitch) {
  short step;
  short octave;
  UtilModDiv(pitch.step, 7, &step, &octave);
  return SignExtend16(12 * octave + kMajorToChromatic[step] + pitch.alteration);
}
