// Pitches and intervals on the circle of fifths: the tests' own arithmetic, which needs no table of alterations.
#pragma once

#include <array>
#include <ostream>
#include <string>

#include "tests/util/pitch/diapitch.h"
#include "transposition.h"

inline bool operator==(const tInterval& a, const tInterval& b) {
  return a.steps == b.steps && a.alteration == b.alteration;
}

inline std::ostream& operator<<(std::ostream& out, const tInterval& interval) {
  return out << "{steps " << interval.steps << ", alteration " << interval.alteration << "}";
}

inline int FloorMod(int value, int divisor) { return ((value % divisor) + divisor) % divisor; }

// How many fifths above C the natural of a step is: C D E F G A B.
inline int FifthsOfStep(int step) {
  return std::array{0, 2, 4, -1, 1, 3, 5}[static_cast<std::size_t>(FloorMod(step, 7))];
}

// A sharp is seven fifths.
inline int FifthsOf(tDiaPitch pitch) { return FifthsOfStep(pitch.step) + 7 * pitch.alteration; }
inline int FifthsOf(tInterval interval) { return FifthsOfStep(interval.steps) + 7 * interval.alteration; }

inline tInterval Interval(int steps, int alteration) {
  return {static_cast<std::int16_t>(steps), static_cast<std::int16_t>(alteration)};
}

// The interval of a number of steps and fifths, which have to agree.
inline tInterval IntervalOf(int steps, int fifths) { return Interval(steps, (fifths - FifthsOfStep(steps)) / 7); }

// "Bb3", "F##5"; the octave of middle C is 4.
inline tDiaPitch Pitch(const std::string& name) {
  int alteration = 0;
  std::size_t i = 1;
  for (; name[i] == '#' || name[i] == 'b'; ++i) alteration += name[i] == '#' ? 1 : -1;
  const int letter = static_cast<int>(std::string("CDEFGAB").find(name[0]));
  return {static_cast<std::int16_t>(letter + 7 * (std::stoi(name.substr(i)) - 4)),
          static_cast<std::int16_t>(alteration)};
}
