// Pitches relative to a key.
#include <gtest/gtest.h>

#include "intervals.h"

namespace {

tDiaPitch RelToAbs(tDiaPitch pitch, int key) {
  EXPECT_EQ(BXUtilRelToAbsTCD(&pitch, key), 0);
  return pitch;
}

const char* const kMajorTonics[] = {"Cb4", "Gb4", "Db4", "Ab4", "Eb4", "Bb4", "F4", "C4",
                                    "G4",  "D4",  "A4",  "E4",  "B4",  "F#4", "C#4"};
const char* const kMinorTonics[] = {"Ab4", "Eb4", "Bb4", "F4",  "C4",  "G4",  "D4", "A4",
                                    "E4",  "B4",  "F#4", "C#4", "G#4", "D#4", "A#4"};

int Key(int sharps, int mode) { return (sharps & 0xFF) | mode << 8; }

TEST(RelToAbs, PutsStepZeroOnTheTonicOfEachKey) {
  for (int sharps = -7; sharps <= 7; ++sharps) {
    EXPECT_EQ(RelToAbs({0, 0}, Key(sharps, 0)), Pitch(kMajorTonics[sharps + 7])) << sharps;
    EXPECT_EQ(RelToAbs({0, 0}, Key(sharps, 1)), Pitch(kMinorTonics[sharps + 7])) << sharps;
  }
}

TEST(RelToAbs, FollowsTheScaleOfEachKey) {
  // The pitches of a key signature of n sharps are the fifths from n - 1 to n + 5.
  for (int sharps = -7; sharps <= 7; ++sharps) {
    for (const int mode : {0, 1}) {
      for (int step = -14; step <= 14; ++step) {
        const int fifths = FifthsOf(RelToAbs({static_cast<std::int16_t>(step), 0}, Key(sharps, mode)));
        EXPECT_GE(fifths, sharps - 1);
        EXPECT_LE(fifths, sharps + 5);
      }
    }
  }
}

TEST(RelToAbs, RaisesByTheAlteration) {
  EXPECT_EQ(RelToAbs({2, -1}, 2), Pitch("F4"));
  EXPECT_EQ(RelToAbs({6, 1}, 0x0100), Pitch("G#5"));
}

TEST(AbsToRel, IsTheReverseInAllThirtyKeys) {
  for (int sharps = -7; sharps <= 7; ++sharps) {
    for (const int mode : {0, 1}) {
      for (int step = -28; step <= 39; ++step) {
        const tDiaPitch before{static_cast<std::int16_t>(step), static_cast<std::int16_t>(step % 2)};
        tDiaPitch pitch = RelToAbs(before, Key(sharps, mode));
        ASSERT_EQ(BXUtilAbsToRelTCD(&pitch, Key(sharps, mode)), 0);
        ASSERT_EQ(pitch, before) << sharps << " sharps, mode " << mode;
      }
    }
  }
}

TEST(KeyRelativePitches, NeedAKeyWithATonic) {
  for (const int key : {0x4000, 0x7FFF, 0x0200, 0x3F00, 0xFF00, 0x8000}) {
    tDiaPitch pitch{5, 1};
    EXPECT_EQ(BXUtilRelToAbsTCD(&pitch, key), -101) << key;
    EXPECT_EQ(BXUtilAbsToRelTCD(&pitch, key), -101) << key;
    EXPECT_EQ(pitch, (tDiaPitch{5, 1}));
  }
}

}  // namespace
