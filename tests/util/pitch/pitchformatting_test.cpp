// The choice between names and numbers, by hand and by the document's preferences.
#include <gtest/gtest.h>

#include <cstring>
#include <optional>
#include <string>

#include "hostrecords.h"
#include "pitch.h"
#include "recordinghost.h"

namespace {

std::string MiddleC() {
  char text[32];
  BXUtilFormatPitch({0, 0}, text, sizeof(text));
  return text;
}

class PitchFormatting : public testing::Test {
 protected:
  // Preferences as the host has them: whether to use names, and the offset of the octaves in semitones.
  void ServePreferences(int usesNames, int semitones) {
    host_.On("BX_LoadEData", [=](const HostCall& call) -> std::uint64_t {
      EXPECT_EQ(call.arguments[0], 0x70666770u);
      EXPECT_EQ(call.Pointer<EDataKey>(1)->recordNumber, 0);
      EXPECT_EQ(*call.Pointer<std::int32_t>(3), 66);
      const std::int16_t words[] = {static_cast<std::int16_t>(usesNames), static_cast<std::int16_t>(semitones)};
      std::memset(call.Pointer<char>(2), 0x77, 66);
      std::memcpy(call.Pointer<char>(2) + 38, words, sizeof(words));
      return 1;
    });
  }

  RecordingHost host_;
};

TEST_F(PitchFormatting, NamesTheOctaveOfMiddleCByTheMode) {
  EXPECT_EQ(BXUtilSetPitchFormatting(3), 0);
  EXPECT_EQ(MiddleC(), "C3");
  EXPECT_EQ(BXUtilSetPitchFormatting(-1), 0);
  EXPECT_EQ(MiddleC(), "C-1");
}

TEST_F(PitchFormatting, WritesNumbersInTheGreatestMode) {
  EXPECT_EQ(BXUtilSetPitchFormatting(3), 0);
  EXPECT_EQ(BXUtilSetPitchFormatting(32767), 0);
  EXPECT_EQ(MiddleC(), "60");
}

TEST_F(PitchFormatting, ReadsTheLowSixteenBitsOfTheMode) {
  EXPECT_EQ(BXUtilSetPitchFormatting(0x70005), 0);
  EXPECT_EQ(MiddleC(), "C5");
  EXPECT_EQ(BXUtilSetPitchFormatting(0x17FFF), 0);
  EXPECT_EQ(MiddleC(), "60");
}

TEST_F(PitchFormatting, FollowsTheDocumentsNamesAndOctaves) {
  const std::pair<int, const char*> octaves[] = {{0, "C4"}, {12, "C5"}, {-12, "C3"}, {-60, "C-1"}};
  for (const auto& [semitones, text] : octaves) {
    ServePreferences(1, semitones);
    EXPECT_EQ(BXUtilSetPitchFormatting(-32768), 0);
    EXPECT_EQ(MiddleC(), text);
  }
}

TEST_F(PitchFormatting, FollowsTheDocumentsNumbers) {
  BXUtilSetPitchFormatting(4);
  ServePreferences(0, 5);
  EXPECT_EQ(BXUtilSetPitchFormatting(-32768), 0);
  EXPECT_EQ(MiddleC(), "60");
}

TEST_F(PitchFormatting, ChangesNothingWhereOctavesAreNotWhole) {
  BXUtilSetPitchFormatting(2);
  for (const int semitones : {1, -1, 11, 13}) {
    ServePreferences(1, semitones);
    EXPECT_EQ(BXUtilSetPitchFormatting(-32768), 1) << semitones;
    EXPECT_EQ(MiddleC(), "C2");
  }
}

TEST_F(PitchFormatting, ChangesNothingWithoutPreferences) {
  BXUtilSetPitchFormatting(2);
  host_.Answer("BX_LoadEData", 0);
  EXPECT_EQ(BXUtilSetPitchFormatting(-32768), 1);
  EXPECT_EQ(MiddleC(), "C2");
}

}  // namespace
