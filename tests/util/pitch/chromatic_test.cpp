#include <gtest/gtest.h>

#include <tuple>

#include "diapitch.h"
#include "pitch.h"

namespace {

TEST(ChromToAbsTCD, SpellsTheBlackKeysAsUsual) {
  EXPECT_EQ(BXUtilChromToAbsTCD(1), (tDiaPitch{0, 1}));
  EXPECT_EQ(BXUtilChromToAbsTCD(3), (tDiaPitch{1, 1}));
  EXPECT_EQ(BXUtilChromToAbsTCD(6), (tDiaPitch{3, 1}));
  EXPECT_EQ(BXUtilChromToAbsTCD(8), (tDiaPitch{4, 1}));
  EXPECT_EQ(BXUtilChromToAbsTCD(10), (tDiaPitch{6, -1}));
}

TEST(ChromToAbsTCD, PutsTheWhiteKeysOnTheirSteps) {
  EXPECT_EQ(BXUtilChromToAbsTCD(0), (tDiaPitch{0, 0}));
  EXPECT_EQ(BXUtilChromToAbsTCD(4), (tDiaPitch{2, 0}));
  EXPECT_EQ(BXUtilChromToAbsTCD(5), (tDiaPitch{3, 0}));
  EXPECT_EQ(BXUtilChromToAbsTCD(11), (tDiaPitch{6, 0}));
}

TEST(ChromToAbsTCD, RoundsOctavesDownward) {
  EXPECT_EQ(BXUtilChromToAbsTCD(-1), (tDiaPitch{-1, 0}));
  EXPECT_EQ(BXUtilChromToAbsTCD(-2), (tDiaPitch{-1, -1}));
  EXPECT_EQ(BXUtilChromToAbsTCD(-12), (tDiaPitch{-7, 0}));
}

TEST(ChromToAbsTCD, ReadsOnlyTheLowSixteenBits) { EXPECT_EQ(BXUtilChromToAbsTCD(0x12340000), (tDiaPitch{0, 0})); }

TEST(AbsTCDToChrom, AddsAlterationsOfAnySize) {
  EXPECT_EQ(BXUtilAbsTCDToChrom({0, 3}), 3);
  EXPECT_EQ(BXUtilAbsTCDToChrom({0, -5}), -5);
}

TEST(AbsTCDToChrom, CutsTheSumToSixteenBits) { EXPECT_EQ(BXUtilAbsTCDToChrom({0, 32767}), 32767); }

TEST(AbsTCDToChrom, WrapsPastSixteenBits) { EXPECT_EQ(BXUtilAbsTCDToChrom({1, 32767}), -32767); }

TEST(AbsTCDToChrom, IsTheInverseOfChromToAbsTCDForEverySixteenBitNumber) {
  for (int chromatic = -32768; chromatic <= 32767; ++chromatic) {
    ASSERT_EQ(BXUtilAbsTCDToChrom(BXUtilChromToAbsTCD(chromatic)), chromatic);
  }
}

}  // namespace
