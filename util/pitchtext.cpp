#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "moddiv.h"
#include "pitch.h"
#include "pitchformatting.h"
#include "scale.h"

namespace {

constexpr char kLetters[] = "CDEFGAB";
constexpr int kMaxNoteNumber = 127;
constexpr int kMiddleCNumber = 60;
constexpr std::size_t kRangeSideBytes = 32;
constexpr std::size_t kNumberBytes = 12;

void WriteNumber(int number, char* text) { *std::to_chars(text, text + kNumberBytes - 1, number).ptr = '\0'; }

char* WriteAccidentals(int alteration, char* text) {
  for (; alteration > 0; --alteration) *text++ = '#';
  for (; alteration < 0; ++alteration) *text++ = 'b';
  return text;
}

void FormatName(tDiaPitch pitch, char* text) {
  short step;
  short octave;
  UtilModDiv(pitch.step, 7, &step, &octave);
  *text++ = kLetters[step];
  text = WriteAccidentals(pitch.alteration, text);
  WriteNumber(octave + sMiddleCRef, text);
}

// Computed as an int: BXUtilAbsTCDToChrom would cut a number far from middle C to 16 bits.
void FormatNumber(tDiaPitch pitch, char* text) {
  short step;
  short octave;
  UtilModDiv(pitch.step, 7, &step, &octave);
  WriteNumber(kMiddleCNumber + 12 * octave + kMajorToChromatic[step] + pitch.alteration, text);
}

// The step of a letter within its octave, or -1.
int StepOfLetter(char letter) {
  if (letter >= 'a' && letter <= 'g') letter = static_cast<char>(letter - 'a' + 'A');
  if (letter < 'A' || letter > 'G') return -1;
  return static_cast<int>(std::strchr(kLetters, letter) - kLetters);
}

int AlterationOf(char accidental) {
  if (accidental == '#') return 1;
  if (accidental == 'b') return -1;
  return 0;
}

// Compatibility: the bounds are steps, whichever octave number middle C has. Ranges of instruments that extensions keep
// as text were checked against the same bounds.
bool IsNamedPitch(int step, int alteration) {
  if (step < kMinStep || step > kMaxStep) return false;
  if (step == kMaxStep && alteration > 0) return false;
  return step != kMinStep || alteration >= 0;
}

short16 ParseName(const char* text, tDiaPitch* pitch) {
  if (std::strlen(text) < 2) return kBadPitchName;
  const int letter = StepOfLetter(text[0]);
  if (letter < 0) return kBadPitchName;
  // Compatibility: no more than one accidental is read, though more are written. Extensions check with this what a user
  // typed, and what they stored has one at most.
  const int alteration = AlterationOf(text[1]);
  const char octave = alteration == 0 ? text[1] : text[2];
  if (octave < '0' || octave > '9') return kBadPitchName;
  const int step = letter + 7 * (octave - '0' - sMiddleCRef);
  if (!IsNamedPitch(step, alteration)) return kBadPitchName;
  *pitch = {static_cast<std::int16_t>(step), static_cast<std::int16_t>(alteration)};
  return 0;
}

short16 ParseNumber(const char* text, tDiaPitch* pitch) {
  const int number = std::atoi(text);
  if (number < 0 || number > kMaxNoteNumber) return kBadPitchNumber;
  *pitch = BXUtilChromToAbsTCD(number - kMiddleCNumber);
  return 0;
}

// Copies the side of a range that ends before end.
void CopySide(const char* begin, const char* end, char* side) {
  const std::size_t length = std::min(static_cast<std::size_t>(end - begin), kRangeSideBytes - 1);
  std::memcpy(side, begin, length);
  side[length] = '\0';
}

}  // namespace

// Compatibility: the buffer's size is not used, here and for ranges. Older extensions pass 0 or a size in other units.
void BXUtilFormatPitch(tDiaPitch pitch, char* text, short16) {
  if (sUsePitchNames) {
    FormatName(pitch, text);
  } else {
    FormatNumber(pitch, text);
  }
}

short16 BXUtilParsePitch(const char* text, tDiaPitch* pitch) {
  return sUsePitchNames ? ParseName(text, pitch) : ParseNumber(text, pitch);
}

void BXUtilFormatRange(const tDiaRange& range, char* text, short16 bufferSize) {
  BXUtilFormatPitch(range.low, text, bufferSize);
  std::strcat(text, "/");
  BXUtilFormatPitch(range.high, text + std::strlen(text), bufferSize);
}

short16 BXUtilParseRange(const char* text, tDiaRange* range) {
  *range = {{kMinStep, 0}, {kMaxStep, 0}};
  const char* slash = std::strchr(text, '/');
  if (slash == nullptr) return kNoRangeSeparator;
  char side[kRangeSideBytes];
  tDiaPitch first;
  CopySide(text, slash, side);
  if (const short16 error = BXUtilParsePitch(side, &first)) return error;
  tDiaPitch second;
  CopySide(slash + 1, text + std::strlen(text), side);
  if (const short16 error = BXUtilParsePitch(side, &second)) return error;
  const bool ascending = BXUtilAbsTCDToChrom(first) <= BXUtilAbsTCDToChrom(second);
  *range = ascending ? tDiaRange{first, second} : tDiaRange{second, first};
  return 0;
}
