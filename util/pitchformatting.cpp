#include "pitchformatting.h"

#include "documentspecs.h"
#include "integerclasses.h"
#include "moddiv.h"
#include "pitch.h"
#include "scale.h"

std::int16_t sUsePitchNames = 0;
std::int16_t sMiddleCRef = kOctaveOfMiddleC;

namespace {

void UsePitchNames(int middleC) {
  sUsePitchNames = 1;
  sMiddleCRef = static_cast<std::int16_t>(middleC);
}

short16 UseDocumentFormatting() {
  EDTGeneralPrefs2008 prefs = {};
  if (BXUtilGetGeneralPrefs(&prefs) == 0) return 1;
  if (prefs.usePitchNames == 0) {
    sUsePitchNames = 0;
    return 0;
  }
  short semitones;
  short octaves;
  UtilModDiv(prefs.octaveOffset, kSemitonesOfAnOctave, &semitones, &octaves);
  if (semitones != 0) return 1;
  UsePitchNames(octaves + kOctaveOfMiddleC);
  return 0;
}

}  // namespace

short16 BXUtilSetPitchFormatting(short16 mode) {
  switch (SignExtend16(mode)) {
    case kPitchNumbers:
      sUsePitchNames = 0;
      return 0;
    case kPitchesAsInDocument:
      return UseDocumentFormatting();
    default:
      UsePitchNames(SignExtend16(mode));
      return 0;
  }
}
