#include "pitchformatting.h"

#include <cstring>

#include "brevixpdk.h"
#include "integerclasses.h"
#include "moddiv.h"
#include "pitch.h"

std::int16_t sUsePitchNames = 0;
std::int16_t sMiddleCRef = 4;

namespace {

constexpr uint32 kGeneralPrefsTag = 0x70666770;  // "pfgp"
constexpr std::int32_t kGeneralPrefsSize = 66;
constexpr int kUsePitchNamesByte = 38;
constexpr int kOctaveOffsetByte = 40;  // in semitones

std::int16_t WordAt(const unsigned char* record, int offset) {
  std::int16_t word;
  std::memcpy(&word, record + offset, sizeof(word));
  return word;
}

void UsePitchNames(int middleC) {
  sUsePitchNames = 1;
  sMiddleCRef = static_cast<std::int16_t>(middleC);
}

short16 UseDocumentFormatting() {
  unsigned char prefs[kGeneralPrefsSize] = {};
  EDataKey key = {};
  std::int32_t size = kGeneralPrefsSize;
  if (!BX_LoadEData(kGeneralPrefsTag, &key, prefs, &size, kBrvVersion)) return 1;
  if (WordAt(prefs, kUsePitchNamesByte) == 0) {
    sUsePitchNames = 0;
    return 0;
  }
  short semitones;
  short octaves;
  UtilModDiv(WordAt(prefs, kOctaveOffsetByte), 12, &semitones, &octaves);
  if (semitones != 0) return 1;
  UsePitchNames(octaves + 4);
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
