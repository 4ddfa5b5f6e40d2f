// Pitches moved by intervals and by transpositions of staves, with any words: the semitones that must come out, and
// that each move has its reverse.
#include "transposition.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "fuzz/support/input.h"
#include "fuzz/support/require.h"
#include "fuzz/support/target.h"
#include "pitch.h"

namespace {

constexpr int kSemitones[] = {0, 2, 4, 5, 7, 9, 11};

bool Same(tDiaPitch a, tDiaPitch b) { return a.step == b.step && a.alteration == b.alteration; }

// Moves of steps that wrap at 16 bits have no reverse.
bool IsSmall(int number) { return std::abs(number) < 8000; }
bool IsSmall(tDiaPitch pitch) { return IsSmall(pitch.step) && IsSmall(pitch.alteration); }
bool IsSmall(tInterval interval) { return IsSmall(interval.steps) && IsSmall(interval.alteration); }

// Of pitches and of intervals alike: an interval's alteration is that from the major or perfect one.
int SemitonesOf(int steps, int alteration) {
  const int octave = steps / 7 - (steps % 7 < 0 ? 1 : 0);
  return 12 * octave + kSemitones[steps - 7 * octave] + alteration;
}

std::int16_t AnyWord(Input& input) {
  return input.Flag() ? static_cast<std::int16_t>(input.Word()) : static_cast<std::int16_t>(input.Byte() - 128);
}

void CheckIntervals(tDiaPitch pitch, tInterval interval) {
  tDiaPitch moved = pitch;
  BXUtilTranspose(&moved, interval);
  tInterval inverse = interval;
  const int steps = BXUtilInvertInterval(&inverse);
  Require(steps == inverse.steps, "the steps of the inverse are returned");
  if (!IsSmall(pitch) || !IsSmall(interval)) return;
  Require(moved.step == pitch.step + interval.steps, "a pitch moves by the steps of the interval");
  Require(SemitonesOf(moved.step, moved.alteration) ==
              SemitonesOf(pitch.step, pitch.alteration) + SemitonesOf(interval.steps, interval.alteration),
          "a pitch moves by the semitones of the interval");
  BXUtilTranspose(&moved, inverse);
  Require(Same(moved, pitch), "the inverse of an interval takes a pitch back");
}

void CheckStaves(tDiaPitch pitch, std::int16_t code, std::int16_t key) {
  tInterval interval = {};
  BXUtilStaffTransToInterval(code, key, &interval);
  tDiaPitch written = pitch;
  BXUtilAbsToStaffTCD(&written, code, key);
  tDiaPitch expected = pitch;
  BXUtilTranspose(&expected, interval);
  Require(Same(written, expected), "a written pitch is the interval from the sounding one");
  BXUtilStaffToAbsTCD(&written, code, key);
  if (IsSmall(pitch) && IsSmall(interval)) Require(Same(written, pitch), "a written pitch sounds as it did");
}

void CheckCodes(tInterval interval, std::int16_t chromatic) {
  const int code = BXUtilIntervalToStaffTrans(interval, chromatic);
  Require(code >= INT16_MIN && code <= INT16_MAX, "a code has 16 bits");
  const bool fits = std::abs(interval.steps) < 127 && std::abs(interval.alteration) < 6;
  if (chromatic != 0 || !fits) return;
  tInterval inverse = interval;
  BXUtilInvertInterval(&inverse);
  tInterval decoded = {};
  BXUtilStaffTransToInterval(code, 0, &decoded);
  Require(decoded.steps == inverse.steps && decoded.alteration == inverse.alteration,
          "a diatonic code is that of the inverse interval");
}

void CheckKeys(tDiaPitch pitch, std::int16_t key) {
  tDiaPitch moved = pitch;
  const int error = BXUtilAbsToRelTCD(&moved, key);
  Require(error == 0 || error == kNoTonic, "a key has a tonic or has none");
  tDiaPitch back = moved;
  Require(BXUtilRelToAbsTCD(&back, key) == error, "a key has a tonic in both directions");
  if (error != 0) Require(Same(moved, pitch), "without a tonic a pitch stays");
  if (IsSmall(pitch)) Require(Same(back, pitch), "a pitch relative to a key is changed back");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  Input input(bytes, size);
  const tDiaPitch pitch = {AnyWord(input), AnyWord(input)};
  const tInterval interval = {AnyWord(input), AnyWord(input)};
  const std::int16_t code = AnyWord(input);
  const std::int16_t key = AnyWord(input);
  CheckIntervals(pitch, interval);
  CheckStaves(pitch, code, key);
  CheckCodes(interval, AnyWord(input));
  CheckCodes(interval, 0);
  CheckKeys(pitch, key);
  return 0;
}
