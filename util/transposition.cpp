#include "transposition.h"

#include <cstdint>

#include "moddiv.h"

namespace {

// The alteration that turns a move upward in the C major scale into the major or perfect interval: a row for each
// starting step from D to B, a column for each interval from second to seventh. From C, every such move is one already.
constexpr std::int8_t kTransposeUpAlts[6][6] = {
    {0, 1, 0, 0, 0, 1},   // D
    {1, 1, 0, 0, 1, 1},   // E
    {0, 0, -1, 0, 0, 0},  // F
    {0, 0, 0, 0, 0, 1},   // G
    {0, 1, 0, 0, 1, 1},   // A
    {1, 1, 0, 1, 1, 1},   // B
};

int FloorMod7(int steps) {
  short remainder;
  short quotient;
  UtilModDiv(steps, 7, &remainder, &quotient);
  return remainder;
}

}  // namespace

void BXUtilTranspose(tDiaPitch* pitch, const tInterval& interval) {
  const int step = FloorMod7(pitch->step);
  const int size = FloorMod7(interval.steps);
  const int scaleAlteration = step > 0 && size > 0 ? kTransposeUpAlts[step - 1][size - 1] : 0;
  pitch->step = static_cast<std::int16_t>(pitch->step + interval.steps);
  pitch->alteration = static_cast<std::int16_t>(pitch->alteration + scaleAlteration + interval.alteration);
}

short16 BXUtilInvertInterval(tInterval* interval) {
  const int size = FloorMod7(interval->steps);
  const bool perfect = size == 0 || size == 3 || size == 4;
  interval->alteration = static_cast<std::int16_t>(-interval->alteration - (perfect ? 0 : 1));
  interval->steps = static_cast<std::int16_t>(-interval->steps);
  return interval->steps;
}
