#include <gtest/gtest.h>

#include <string>

#include "diapitch.h"
#include "pitch.h"

namespace {

constexpr tDiaPitch kUntouched = {99, 9};

class PitchText : public testing::Test {
 protected:
  static void UseNames(int middleC = 4) { ASSERT_EQ(BXUtilSetPitchFormatting(middleC), 0); }
  static void UseNumbers() { ASSERT_EQ(BXUtilSetPitchFormatting(kPitchNumbers), 0); }

  static std::string Format(tDiaPitch pitch) {
    char text[64];
    BXUtilFormatPitch(pitch, text, sizeof(text));
    return text;
  }

  static std::string Format(tDiaRange range) {
    char text[64];
    BXUtilFormatRange(range, text, sizeof(text));
    return text;
  }

  static int Parse(const char* text) {
    tDiaPitch pitch = kUntouched;
    const int error = BXUtilParsePitch(text, &pitch);
    EXPECT_TRUE(error == 0 || pitch == kUntouched) << text;
    return error;
  }

  static tDiaPitch Parsed(const char* text) {
    tDiaPitch pitch = kUntouched;
    EXPECT_EQ(BXUtilParsePitch(text, &pitch), 0) << text;
    return pitch;
  }
};

TEST_F(PitchText, NamesTakeLettersOfEitherCase) {
  UseNames();
  EXPECT_EQ(Parsed("c4"), (tDiaPitch{0, 0}));
  EXPECT_EQ(Parsed("C4"), (tDiaPitch{0, 0}));
  EXPECT_EQ(Parsed("b3"), (tDiaPitch{-1, 0}));
}

TEST_F(PitchText, NamesTakeOneAccidental) {
  UseNames();
  EXPECT_EQ(Parsed("F#3"), (tDiaPitch{-4, 1}));
  EXPECT_EQ(Parsed("Bb2"), (tDiaPitch{-8, -1}));
  EXPECT_EQ(Parsed("bb4"), (tDiaPitch{6, -1}));
  EXPECT_EQ(Parse("C##4"), kBadPitchName);
  EXPECT_EQ(Parse("Cbb4"), kBadPitchName);
}

TEST_F(PitchText, OtherNamesAreRefused) {
  UseNames();
  for (const char* text : {"H4", "C", "", "Cx4", "C#x", "C#", "4C", " C4", "C-1", "CB4"}) {
    EXPECT_EQ(Parse(text), kBadPitchName) << text;
  }
}

TEST_F(PitchText, NamesIgnoreWhatFollowsTheOctave) {
  UseNames();
  EXPECT_EQ(Parsed("C4 and more"), (tDiaPitch{0, 0}));
  EXPECT_EQ(Parsed("C10"), (tDiaPitch{-21, 0}));
}

TEST_F(PitchText, NamesRunFromC0ToG9) {
  UseNames();
  EXPECT_EQ(Parsed("C0"), (tDiaPitch{-28, 0}));
  EXPECT_EQ(Parsed("C#0"), (tDiaPitch{-28, 1}));
  EXPECT_EQ(Parsed("G9"), (tDiaPitch{39, 0}));
  EXPECT_EQ(Parsed("Gb9"), (tDiaPitch{39, -1}));
  EXPECT_EQ(Parse("G#9"), kBadPitchName);
  EXPECT_EQ(Parse("Cb0"), kBadPitchName);
  EXPECT_EQ(Parse("A9"), kBadPitchName);
}

TEST_F(PitchText, TheBoundsAreStepsWhateverTheOctaveOfMiddleC) {
  UseNames(3);
  EXPECT_EQ(Parsed("G8"), (tDiaPitch{39, 0}));
  EXPECT_EQ(Parse("G9"), kBadPitchName);
  EXPECT_EQ(Parsed("C0"), (tDiaPitch{-21, 0}));
}

TEST_F(PitchText, NamesAreWrittenWithTheOctaveOfTheMode) {
  UseNames(3);
  EXPECT_EQ(Format(tDiaPitch{0, 0}), "C3");
  UseNames(4);
  EXPECT_EQ(Format(tDiaPitch{0, 0}), "C4");
  EXPECT_EQ(Format(tDiaPitch{-1, -1}), "Bb3");
  EXPECT_EQ(Format(tDiaPitch{0, 2}), "C##4");
  EXPECT_EQ(Format(tDiaPitch{-35, 0}), "C-1");
  EXPECT_EQ(Format(tDiaPitch{4, -3}), "Gbbb4");
}

TEST_F(PitchText, NumbersCountMiddleCAsSixty) {
  UseNumbers();
  EXPECT_EQ(Format(tDiaPitch{0, 0}), "60");
  EXPECT_EQ(Format(tDiaPitch{0, 1}), "61");
  EXPECT_EQ(Format(tDiaPitch{-42, 0}), "-12");
}

TEST_F(PitchText, NumbersFarFromMiddleCAreWrittenWhole) {
  UseNumbers();
  EXPECT_EQ(Format(tDiaPitch{32767, 0}), std::to_string(60 + 12 * 4681));
}

TEST_F(PitchText, NumbersRunFromZeroTo127) {
  UseNumbers();
  EXPECT_EQ(Parsed("0"), (tDiaPitch{-35, 0}));
  EXPECT_EQ(Parsed("127"), (tDiaPitch{39, 0}));
  EXPECT_EQ(Parse("128"), kBadPitchNumber);
  EXPECT_EQ(Parse("-1"), kBadPitchNumber);
}

TEST_F(PitchText, NumbersSpellSemitoneTenAsBFlat) {
  UseNumbers();
  EXPECT_EQ(Parsed("70"), (tDiaPitch{6, -1}));
}

TEST_F(PitchText, NumbersAreReadAsAtoiReadsThem) {
  UseNumbers();
  EXPECT_EQ(Parsed("  +60x"), (tDiaPitch{0, 0}));
  EXPECT_EQ(Parsed("text"), (tDiaPitch{-35, 0}));
}

TEST_F(PitchText, IsWrittenWholeWhateverTheSize) {
  UseNames();
  for (const int size : {0, 1, 3, -1}) {
    char text[64];
    BXUtilFormatPitch({0, 12}, text, size);
    EXPECT_STREQ(text, "C############4") << size;
    BXUtilFormatRange({{0, 12}, {14, -3}}, text, size);
    EXPECT_STREQ(text, "C############4/Cbbb6") << size;
  }
}

TEST_F(PitchText, ARangeIsWrittenWithASlash) {
  UseNames();
  EXPECT_EQ(Format(tDiaRange{{0, 0}, {11, 0}}), "C4/G5");
  UseNumbers();
  EXPECT_EQ(Format(tDiaRange{{0, 0}, {11, 0}}), "60/79");
}

class RangeText : public PitchText {
 protected:
  void ExpectRange(const char* text, tDiaPitch low, tDiaPitch high) {
    EXPECT_EQ(BXUtilParseRange(text, &range), 0) << text;
    EXPECT_EQ(range.low, low) << text;
    EXPECT_EQ(range.high, high) << text;
  }

  void ExpectDefault(const char* text, int error) {
    range = {{1, 1}, {2, 2}};
    EXPECT_EQ(BXUtilParseRange(text, &range), error) << text;
    EXPECT_EQ(range.low, (tDiaPitch{-28, 0})) << text;
    EXPECT_EQ(range.high, (tDiaPitch{39, 0})) << text;
  }

  tDiaRange range = {};
};

TEST_F(RangeText, PutsTheLowerPitchFirst) {
  UseNames();
  ExpectRange("C4/G5", {0, 0}, {11, 0});
  ExpectRange("G5/C4", {0, 0}, {11, 0});
}

TEST_F(RangeText, ComparesBySoundNotByStep) {
  UseNames();
  ExpectRange("Fb4/E#4", {3, -1}, {2, 1});
  ExpectRange("E#4/Fb4", {3, -1}, {2, 1});
}

TEST_F(RangeText, KeepsTheOrderOfEqualSounds) {
  UseNames();
  ExpectRange("F4/E#4", {3, 0}, {2, 1});
  ExpectRange("E#4/F4", {2, 1}, {3, 0});
}

TEST_F(RangeText, ReadsNumbersInNumberMode) {
  UseNumbers();
  ExpectRange("79/60", {0, 0}, {11, 0});
}

TEST_F(RangeText, WithoutASlashIsRefused) {
  UseNames();
  ExpectDefault("C4", kNoRangeSeparator);
  ExpectDefault("", kNoRangeSeparator);
}

TEST_F(RangeText, ABadSideGivesItsErrorAndTheWholeRange) {
  UseNames();
  ExpectDefault("/C4", kBadPitchName);
  ExpectDefault("C4/", kBadPitchName);
  ExpectDefault("C4/H4", kBadPitchName);
  UseNumbers();
  ExpectDefault("60/128", kBadPitchNumber);
}

TEST_F(RangeText, ALongSideIsReadAsFarAsThirtyOneCharacters) {
  UseNumbers();
  ExpectRange((std::string(29, ' ') + "605/79").c_str(), {0, 0}, {11, 0});
}

}  // namespace
