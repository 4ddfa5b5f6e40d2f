// The codes of staff transpositions, against a model on the circle of fifths.
#include <gtest/gtest.h>

#include "intervals.h"

namespace {

tInterval Decoded(int code, int key) {
  tInterval interval;
  BXUtilStaffTransToInterval(code, key, &interval);
  return interval;
}

int Signed(int value, int bits) {
  const int low = value & ((1 << bits) - 1);
  return low < 1 << (bits - 1) ? low : low - (1 << bits);
}

// Codes whose alteration is one too low: those where one fifth more is a negative multiple of seven.
bool IsRoundedDown(int fifths) { return fifths < -1 && (fifths + 1) % 7 == 0; }

// In the diatonic form, a downward interval is the upward one of as many steps, turned round.
tInterval DiatonicModel(int code) {
  const int steps = Signed(code, 8);
  const int alteration = Signed(code >> 8, 4);
  const int fifths = steps >= 0 ? FifthsOfStep(steps) : -FifthsOfStep(-steps);
  return IntervalOf(steps, fifths + 7 * alteration);
}

// The chromatic form has the change of the key; its steps count, whatever the fifths.
tInterval ChromaticModel(int code, int sharps) {
  int fifths = Signed(code, 6);
  int steps = Signed(code >> 6, 6);
  if ((code & 0x4000) == 0) {
    for (; fifths + sharps > 6; fifths -= 12) ++steps;
    for (; fifths + sharps < -6; fifths += 12) --steps;
  }
  // Each fifth above C is 4 steps up.
  const int alteration = (fifths - FifthsOfStep(4 * fifths)) / 7;
  return Interval(static_cast<std::int16_t>(steps), alteration - (IsRoundedDown(fifths) ? 1 : 0));
}

TEST(StaffTransToInterval, DecodesEveryCodeInEveryKey) {
  for (int key = -7; key <= 8; ++key) {
    const int signature = key == 8 ? 0x4000 : key & 0xFF;
    const int sharps = key == 8 ? 0x4000 : key;
    for (int code = 0; code <= 0xFFFF; ++code) {
      const tInterval expected = (code & 0x2000) != 0 ? DiatonicModel(code) : ChromaticModel(code, sharps);
      ASSERT_EQ(Decoded(code, signature), expected) << "code " << code << ", key " << signature;
    }
  }
}

TEST(StaffTransToInterval, DecodesTheKnownCodes) {
  EXPECT_EQ(Decoded(0x2001, 0), Interval(1, 0));
  EXPECT_EQ(Decoded(0x20FF, 0), Interval(-1, -1));
  EXPECT_EQ(Decoded(7, 0), Interval(1, -1));
  EXPECT_EQ(Decoded(7 | 0x4000, 0), Interval(0, 1));
  EXPECT_EQ(Decoded((-8 & 63) | 0x4000, 0).alteration, -2);
}

TEST(StaffTransToInterval, LooksAtTheLowByteOfTheKeyAlone) {
  EXPECT_EQ(Decoded(7, 0x0100), Decoded(7, 0)) << "A minor has the sharps of C major";
  EXPECT_EQ(Decoded(2, 0x0105), Decoded(2, 5));
  EXPECT_EQ(Decoded(2, 0xFF05), Decoded(2, 5)) << "a negative number";
  EXPECT_EQ(Decoded(2, 0x50005), Decoded(2, 5)) << "nothing above bit 15";
}

TEST(IntervalToStaffTrans, GivesTheKnownCodes) {
  EXPECT_EQ(BXUtilIntervalToStaffTrans({0, 0}, 0), 0);
  EXPECT_EQ(BXUtilIntervalToStaffTrans({0, 0}, 1), 0);
  EXPECT_EQ(BXUtilIntervalToStaffTrans({0, 1}, 1), 57);
  EXPECT_EQ(BXUtilIntervalToStaffTrans({-1, -1}, 1), 0x0042) << "a clarinet in B flat";
  EXPECT_EQ(BXUtilIntervalToStaffTrans({-7, 0}, 0), 0x2007) << "a double bass";
}

TEST(IntervalToStaffTrans, GivesCodesOfTheInverseInterval) {
  for (int steps = -21; steps <= 21; ++steps) {
    for (int alteration = -2; alteration <= 2; ++alteration) {
      const tInterval interval = Interval(steps, alteration);
      const tInterval inverse = IntervalOf(-steps, -FifthsOf(interval));
      EXPECT_EQ(Decoded(BXUtilIntervalToStaffTrans(interval, 0), 0), inverse) << interval;

      // In the key as it comes, so that nothing is respelt.
      tInterval chromatic = inverse;
      if (IsRoundedDown(-FifthsOf(interval))) --chromatic.alteration;
      EXPECT_EQ(Decoded(BXUtilIntervalToStaffTrans(interval, 1) | 0x4000, 0), chromatic) << interval;
    }
  }
}

TEST(IntervalToStaffTrans, RoundsOnlyIntervalsOfEightOrFifteenFifthsUp) {
  int rounded = 0;
  for (int steps = -21; steps <= 21; ++steps) {
    for (int alteration = -2; alteration <= 2; ++alteration) {
      const int fifths = FifthsOf(Interval(steps, alteration));
      if (!IsRoundedDown(-fifths)) continue;
      EXPECT_TRUE(fifths == 8 || fifths == 15) << "an augmented fifth, or a doubly augmented one, and their octaves";
      ++rounded;
    }
  }
  EXPECT_EQ(rounded, 12);
}

tDiaPitch StaffToAbs(tDiaPitch pitch, int code, int key) {
  BXUtilStaffToAbsTCD(&pitch, code, key);
  return pitch;
}
tDiaPitch AbsToStaff(tDiaPitch pitch, int code, int key) {
  BXUtilAbsToStaffTCD(&pitch, code, key);
  return pitch;
}

TEST(StaffToAbs, ComesBackInEveryKeyForEveryCodeOfPractice) {
  // In B flat, A, E flat up and down, F, D, G; octaves up and down.
  for (const tInterval interval :
       {Interval(-1, -1), Interval(-2, 0), Interval(2, -1), Interval(-5, -1), Interval(-4, 0), Interval(1, 0),
        Interval(-3, 0), Interval(7, 0), Interval(-7, 0), Interval(14, 0)}) {
    for (const int chromatic : {0, 1}) {
      const int code = BXUtilIntervalToStaffTrans(interval, chromatic);
      for (int key = -7; key <= 7; ++key) {
        for (int step = -28; step <= 39; ++step) {
          const tDiaPitch pitch{static_cast<std::int16_t>(step), static_cast<std::int16_t>(step % 3)};
          ASSERT_EQ(StaffToAbs(AbsToStaff(pitch, code, key), code, key), pitch);
          ASSERT_EQ(AbsToStaff(StaffToAbs(pitch, code, key), code, key), pitch);
        }
      }
    }
  }
}

}  // namespace
