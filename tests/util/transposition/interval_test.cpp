// Transposing by intervals, and turning them round.
#include <gtest/gtest.h>

#include "intervals.h"

namespace {

tDiaPitch Transposed(tDiaPitch pitch, tInterval interval) {
  BXUtilTranspose(&pitch, interval);
  return pitch;
}

tInterval Inverted(tInterval interval) {
  EXPECT_EQ(BXUtilInvertInterval(&interval), interval.steps);
  return interval;
}

TEST(Transpose, MovesByTheMajorOrPerfectInterval) {
  EXPECT_EQ(Transposed(Pitch("E4"), {2, 0}), Pitch("G#4"));
  EXPECT_EQ(Transposed(Pitch("Bb4"), {3, 0}), Pitch("Eb5"));
  EXPECT_EQ(Transposed(Pitch("C4"), {0, 1}), Pitch("C#4"));
  EXPECT_EQ(Transposed(Pitch("B4"), {1, 0}), Pitch("C#5"));
  EXPECT_EQ(Transposed(Pitch("F4"), {3, 0}), Pitch("Bb4"));
  EXPECT_EQ(Transposed(Pitch("C4"), {-1, 0}), Pitch("B3"));
  EXPECT_EQ(Transposed(Pitch("C4"), {-1, -1}), Pitch("Bb3"));
}

TEST(Transpose, AddsFifthsFromEveryStepByEveryInterval) {
  for (int step = -30; step <= 30; ++step) {
    for (int steps = -30; steps <= 30; ++steps) {
      for (int alteration = -2; alteration <= 2; ++alteration) {
        const tDiaPitch pitch{static_cast<std::int16_t>(step), static_cast<std::int16_t>(alteration)};
        const tInterval interval = Interval(steps, 2 - alteration);
        const tDiaPitch moved = Transposed(pitch, interval);
        ASSERT_EQ(moved.step, step + steps);
        ASSERT_EQ(FifthsOf(moved), FifthsOf(pitch) + FifthsOf(interval)) << pitch << " by " << interval;
      }
    }
  }
}

TEST(Transpose, Wraps) { EXPECT_EQ(Transposed({32767, 32767}, {7, 1}), (tDiaPitch{-32762, -32768})); }

TEST(InvertInterval, TurnsTheIntervalRound) {
  EXPECT_EQ(Inverted({1, 0}), Interval(-1, -1));
  EXPECT_EQ(Inverted({-1, -1}), Interval(1, 0));
  EXPECT_EQ(Inverted({4, 0}), Interval(-4, 0));
  EXPECT_EQ(Inverted({0, 1}), Interval(0, -1));
  EXPECT_EQ(Inverted({7, 0}), Interval(-7, 0));
}

TEST(InvertInterval, NegatesFifthsAndSteps) {
  for (int steps = -40; steps <= 40; ++steps) {
    for (int alteration = -3; alteration <= 3; ++alteration) {
      const tInterval interval = Interval(steps, alteration);
      const tInterval inverse = Inverted(interval);
      ASSERT_EQ(inverse, IntervalOf(-steps, -FifthsOf(interval))) << interval;
      ASSERT_EQ(Inverted(inverse), interval);
    }
  }
}

TEST(Transpose, ComesBackByTheInverse) {
  for (int step = -28; step <= 39; ++step) {
    for (int steps = -21; steps <= 21; ++steps) {
      for (int alteration = -2; alteration <= 2; ++alteration) {
        const tDiaPitch pitch{static_cast<std::int16_t>(step), 1};
        const tInterval interval = Interval(steps, alteration);
        ASSERT_EQ(Transposed(Transposed(pitch, interval), Inverted(interval)), pitch) << pitch << " by " << interval;
      }
    }
  }
}

}  // namespace
