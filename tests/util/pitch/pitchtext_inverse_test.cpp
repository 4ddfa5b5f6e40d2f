// Writing and reading are inverse to one another, but for the cases that the tests name.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "diapitch.h"
#include "pitch.h"

namespace {

std::string Format(tDiaPitch pitch) {
  char text[64];
  BXUtilFormatPitch(pitch, text, sizeof(text));
  return text;
}

template <class Check>
void ForEveryNamedStep(Check check) {
  for (int step = kMinStep; step <= kMaxStep; ++step) {
    for (int alteration = -1; alteration <= 1; ++alteration) {
      check(tDiaPitch{static_cast<std::int16_t>(step), static_cast<std::int16_t>(alteration)});
    }
  }
}

// Names of one digit are all that can be read: octaves below 0 are written with a minus sign, and 10 reads as 1.
bool HasOctaveOfOneDigit(tDiaPitch pitch, int middleC) {
  const int octave = (pitch.step + 28) / 7 - 4 + middleC;
  return octave >= 0 && octave <= 9;
}

bool IsSharpAtTheTopOrFlatAtTheBottom(tDiaPitch pitch) {
  return (pitch.step == kMaxStep && pitch.alteration > 0) || (pitch.step == kMinStep && pitch.alteration < 0);
}

TEST(PitchNames, AreReadAsWrittenButForOctavesOfTwoCharactersAndTheOuterAccidentals) {
  for (int middleC = -2; middleC <= 9; ++middleC) {
    BXUtilSetPitchFormatting(middleC);
    ForEveryNamedStep([&](tDiaPitch pitch) {
      const std::string text = Format(pitch);
      tDiaPitch read = {};
      const int error = BXUtilParsePitch(text.c_str(), &read);
      if (HasOctaveOfOneDigit(pitch, middleC) && !IsSharpAtTheTopOrFlatAtTheBottom(pitch)) {
        EXPECT_EQ(error, 0) << text;
        EXPECT_EQ(read, pitch) << text;
      } else {
        EXPECT_TRUE(error == kBadPitchName || !(read == pitch)) << text;
      }
    });
  }
}

TEST(PitchNames, WithAnOctaveFromTenOnReadAsTheirFirstDigit) {
  BXUtilSetPitchFormatting(5);
  EXPECT_EQ(Format({39, 0}), "G10");
  tDiaPitch read = {};
  EXPECT_EQ(BXUtilParsePitch("G10", &read), 0);
  EXPECT_EQ(read, (tDiaPitch{-24, 0}));
}

// Numbers name sounds: a pitch comes back in the usual spelling of its sound.
TEST(PitchNumbers, AreReadAsTheUsualSpellingOfTheSound) {
  BXUtilSetPitchFormatting(kPitchNumbers);
  ForEveryNamedStep([](tDiaPitch pitch) {
    const std::string text = Format(pitch);
    tDiaPitch read = {};
    const int error = BXUtilParsePitch(text.c_str(), &read);
    const int number = std::atoi(text.c_str());
    if (number > 127) {
      EXPECT_EQ(pitch, (tDiaPitch{39, 1}));
      EXPECT_EQ(error, kBadPitchNumber);
      return;
    }
    EXPECT_EQ(error, 0) << text;
    EXPECT_EQ(BXUtilAbsTCDToChrom(read), BXUtilAbsTCDToChrom(pitch)) << text;
    EXPECT_EQ(read, BXUtilChromToAbsTCD(BXUtilAbsTCDToChrom(pitch))) << text;
    EXPECT_EQ(Format(read), text);
  });
}

TEST(PitchNumbers, KeepEveryPitchButTheUnusualSpellings) {
  BXUtilSetPitchFormatting(kPitchNumbers);
  ForEveryNamedStep([](tDiaPitch pitch) {
    if (pitch == tDiaPitch{39, 1}) return;
    const int step = (pitch.step + 28) % 7;
    const bool sharpened = step == 0 || step == 1 || step == 3 || step == 4;
    const bool flattened = step == 6;
    const bool usual =
        pitch.alteration == 0 || (pitch.alteration == 1 && sharpened) || (pitch.alteration == -1 && flattened);
    tDiaPitch read = {};
    EXPECT_EQ(BXUtilParsePitch(Format(pitch).c_str(), &read), 0);
    EXPECT_EQ(read == pitch, usual) << pitch;
  });
}

}  // namespace
