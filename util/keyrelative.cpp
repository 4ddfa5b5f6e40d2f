#include <cstdint>

#include "fifths.h"
#include "keysignature.h"
#include "moddiv.h"
#include "transposition.h"

namespace {

// The tonic of a key.
struct tKeySigOffsets {
  std::int16_t tonicStep;        // of the major tonic, 0 to 6 above C
  std::int16_t tonicAlteration;  // of the major tonic
  std::int16_t modeOffset;       // steps from the major to the minor tonic, 0 in major
};

// The steps up or down to the minor tonic, so that it is within the octave above C.
int MinorTonicOffset(int sharps) {
  const int remainder = sharps % 7;
  return remainder == -5 || remainder == 0 || remainder == 2 ? 5 : -2;
}

short16 KeySigToOffsets(short16 keySignature, tKeySigOffsets* offsets) {
  const int mode = keySignature & 0xFF00;
  if (!IsStandardKey(keySignature) || mode > kMinorKey) return kNoTonic;
  const int sharps = SharpsOfKey(keySignature);
  short step;
  short octave;
  UtilModDiv(4 * sharps, 7, &step, &octave);
  offsets->tonicStep = step;
  offsets->tonicAlteration = static_cast<std::int16_t>(AlterationOfFifths(sharps));
  offsets->modeOffset = static_cast<std::int16_t>(mode == kMinorKey ? MinorTonicOffset(sharps) : 0);
  return 0;
}

tInterval TonicInterval(const tKeySigOffsets& offsets) { return {offsets.tonicStep, offsets.tonicAlteration}; }

}  // namespace

short16 BXUtilRelToAbsTCD(tDiaPitch* pitch, short16 keySignature) {
  tKeySigOffsets offsets;
  if (const short16 error = KeySigToOffsets(keySignature, &offsets)) return error;
  pitch->step = static_cast<std::int16_t>(pitch->step + offsets.modeOffset);
  BXUtilTranspose(pitch, TonicInterval(offsets));
  return 0;
}

short16 BXUtilAbsToRelTCD(tDiaPitch* pitch, short16 keySignature) {
  tKeySigOffsets offsets;
  if (const short16 error = KeySigToOffsets(keySignature, &offsets)) return error;
  tInterval interval = TonicInterval(offsets);
  BXUtilInvertInterval(&interval);
  BXUtilTranspose(pitch, interval);
  pitch->step = static_cast<std::int16_t>(pitch->step - offsets.modeOffset);
  return 0;
}
