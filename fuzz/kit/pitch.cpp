// Pitches and ranges as text, against a reader and a writer of their own.
#include "pitch.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>

#include "fuzz/support/input.h"
#include "fuzz/support/require.h"
#include "fuzz/support/target.h"

namespace {

constexpr int kSemitones[] = {0, 2, 4, 5, 7, 9, 11};
constexpr std::string_view kLetters = "CDEFGAB";
constexpr std::size_t kSideLength = 31;

int FloorDiv(int value, int by) { return value / by - (value % by < 0 ? 1 : 0); }

bool Same(tDiaPitch a, tDiaPitch b) { return a.step == b.step && a.alteration == b.alteration; }

int ChromaticOf(tDiaPitch pitch) {
  const int octave = FloorDiv(pitch.step, 7);
  return 12 * octave + kSemitones[pitch.step - 7 * octave] + pitch.alteration;
}

// How pitches are written: as numbers where there is no octave of middle C.
using Octave = std::optional<int>;

std::string TextOf(tDiaPitch pitch, Octave middleC) {
  if (!middleC) return std::to_string(60 + ChromaticOf(pitch));
  const int octave = FloorDiv(pitch.step, 7);
  std::string text(1, kLetters[static_cast<std::size_t>(pitch.step - 7 * octave)]);
  text.append(static_cast<std::size_t>(std::abs(pitch.alteration)), pitch.alteration < 0 ? 'b' : '#');
  return text + std::to_string(octave + *middleC);
}

struct Reading {
  int error = 0;
  tDiaPitch pitch = {};
};

// Black keys are sharps, but for B flat.
Reading NumberIn(const std::string& text) {
  const int number = std::atoi(text.c_str());  // NOLINT(cert-err34-c): the contract names it
  if (number < 0 || number > 127) return {kBadPitchNumber};
  for (int step = -35; step <= 42; ++step) {
    for (const int alteration : {0, 1, -1}) {
      const int inOctave = step - 7 * FloorDiv(step, 7);
      const bool isBlackKey = alteration == 1 ? (inOctave == 0 || inOctave == 1 || inOctave == 3 || inOctave == 4)
                                              : alteration == -1 && inOctave == 6;
      const tDiaPitch pitch = {static_cast<std::int16_t>(step), static_cast<std::int16_t>(alteration)};
      if ((alteration == 0 || isBlackKey) && ChromaticOf(pitch) + 60 == number) return {0, pitch};
    }
  }
  return {kBadPitchNumber};
}

Reading NameIn(std::string_view text, int middleC) {
  if (text.size() < 2) return {kBadPitchName};
  const std::size_t letter = kLetters.find(static_cast<char>(std::toupper(static_cast<unsigned char>(text[0]))));
  if (letter == std::string_view::npos) return {kBadPitchName};
  const int alteration = text[1] == '#' ? 1 : text[1] == 'b' ? -1 : 0;
  const std::string_view octave = text.substr(alteration == 0 ? 1 : 2, 1);
  if (octave.empty() || octave[0] < '0' || octave[0] > '9') return {kBadPitchName};
  const int step = static_cast<int>(letter) + 7 * (octave[0] - '0' - middleC);
  const bool isBelow = step < kMinStep || (step == kMinStep && alteration < 0);
  const bool isAbove = step > kMaxStep || (step == kMaxStep && alteration > 0);
  if (isBelow || isAbove) return {kBadPitchName};
  return {0, {static_cast<std::int16_t>(step), static_cast<std::int16_t>(alteration)}};
}

Reading PitchIn(const std::string& text, Octave middleC) { return middleC ? NameIn(text, *middleC) : NumberIn(text); }

void CheckWriting(Input& input, Octave middleC) {
  const auto any = [&input] {
    return input.Below(8) != 0 ? static_cast<std::int16_t>(input.Byte() - 128)
                               : static_cast<std::int16_t>(input.Word());
  };
  const tDiaPitch low = {any(), any()};
  const tDiaPitch high = {any(), any()};
  std::string text(static_cast<std::size_t>(std::abs(low.alteration)), '\0');
  text.resize(text.size() + static_cast<std::size_t>(std::abs(high.alteration)) + 16);
  BXUtilFormatRange({low, high}, text.data(), 0);
  Require(TextOf(low, middleC) + "/" + TextOf(high, middleC) == text.data(), "a range is its pitches");
  Require(BXUtilAbsTCDToChrom(low) == static_cast<std::int16_t>(ChromaticOf(low)), "a pitch has its semitones");
  const std::int16_t chromatic = any();
  Require(BXUtilAbsTCDToChrom(BXUtilChromToAbsTCD(chromatic)) == chromatic, "a pitch of some semitones has them");
}

void CheckReading(std::string_view bytes, Octave middleC) {
  const std::string text(bytes.substr(0, bytes.find('\0')));
  tDiaPitch pitch = {7777, -7777};
  const Reading expected = PitchIn(text, middleC);
  Require(BXUtilParsePitch(text.c_str(), &pitch) == expected.error, "a pitch is read or refused");
  Require(Same(pitch, expected.error == 0 ? expected.pitch : tDiaPitch{7777, -7777}), "a pitch is what its text says");

  tDiaRange range = {};
  const int error = BXUtilParseRange(text.c_str(), &range);
  const std::size_t slash = text.find('/');
  const tDiaRange whole = {{kMinStep, 0}, {kMaxStep, 0}};
  Reading first;
  Reading second;
  if (slash != std::string::npos) {
    first = PitchIn(text.substr(0, std::min(slash, kSideLength)), middleC);
    second = PitchIn(text.substr(slash + 1, kSideLength), middleC);
  }
  const int expectedError = slash == std::string::npos ? kNoRangeSeparator
                            : first.error != 0         ? first.error
                                                       : second.error;
  Require(error == expectedError, "a range is read or refused");
  const bool isDescending = ChromaticOf(first.pitch) > ChromaticOf(second.pitch);
  const tDiaRange read = isDescending ? tDiaRange{second.pitch, first.pitch} : tDiaRange{first.pitch, second.pitch};
  const tDiaRange& right = error == 0 ? read : whole;
  Require(Same(range.low, right.low) && Same(range.high, right.high), "a range is what its text says, or the widest");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  Input input(bytes, size);
  const int kind = input.Below(8);
  const auto mode = static_cast<std::int16_t>(kind == 0 ? input.Word() : input.Below(10));
  const bool isNumber = kind == 1 || mode == kPitchNumbers || mode == kPitchesAsInDocument;
  Require(BXUtilSetPitchFormatting(isNumber ? kPitchNumbers : mode) == 0, "a mode that asks nobody is taken");
  const Octave middleC = isNumber ? std::nullopt : Octave(mode);
  if (input.Flag()) {
    CheckWriting(input, middleC);
  } else {
    CheckReading(input.Rest(), middleC);
  }
  return 0;
}
