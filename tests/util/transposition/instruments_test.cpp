// Instruments of the orchestra: what a written C major scale sounds like.
#include <gtest/gtest.h>

#include <sstream>
#include <vector>

#include "intervals.h"

namespace {

struct Instrument {
  const char* name;
  tInterval toSound;  // from written to sounding pitch
  int soundingKey;    // in sharps, of written C major
  const char* sounding;
};

void PrintTo(const Instrument& instrument, std::ostream* out) { *out << instrument.name; }

std::vector<tDiaPitch> Pitches(const char* names) {
  std::istringstream words(names);
  std::vector<tDiaPitch> pitches;
  for (std::string name; words >> name;) pitches.push_back(Pitch(name));
  return pitches;
}

class TransposingInstrument : public testing::TestWithParam<Instrument> {};

TEST_P(TransposingInstrument, SoundsAsItShould) {
  const Instrument& instrument = GetParam();
  const std::vector<tDiaPitch> written = Pitches("C4 D4 E4 F4 G4 A4 B4 C5");
  const std::vector<tDiaPitch> sounding = Pitches(instrument.sounding);
  ASSERT_EQ(sounding.size(), written.size());
  for (const int chromatic : {1, 0}) {
    const int code = BXUtilIntervalToStaffTrans(instrument.toSound, chromatic);
    for (std::size_t i = 0; i < written.size(); ++i) {
      tDiaPitch pitch = written[i];
      BXUtilStaffToAbsTCD(&pitch, code, instrument.soundingKey);
      EXPECT_EQ(pitch, sounding[i]);
      BXUtilAbsToStaffTCD(&pitch, code, instrument.soundingKey);
      EXPECT_EQ(pitch, written[i]);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(OfTheOrchestra, TransposingInstrument,
                         testing::Values(Instrument{"ClarinetInBFlat", {-1, -1}, -2, "Bb3 C4 D4 Eb4 F4 G4 A4 Bb4"},
                                         Instrument{"ClarinetInA", {-2, 0}, 3, "A3 B3 C#4 D4 E4 F#4 G#4 A4"},
                                         Instrument{"ClarinetInEFlat", {2, -1}, -3, "Eb4 F4 G4 Ab4 Bb4 C5 D5 Eb5"},
                                         Instrument{"HornInF", {-4, 0}, -1, "F3 G3 A3 Bb3 C4 D4 E4 F4"},
                                         Instrument{"TrumpetInBFlat", {-1, -1}, -2, "Bb3 C4 D4 Eb4 F4 G4 A4 Bb4"},
                                         Instrument{"TrumpetInC", {0, 0}, 0, "C4 D4 E4 F4 G4 A4 B4 C5"},
                                         Instrument{"TrumpetInD", {1, 0}, 2, "D4 E4 F#4 G4 A4 B4 C#5 D5"},
                                         Instrument{"AltoSaxophone", {-5, -1}, -3, "Eb3 F3 G3 Ab3 Bb3 C4 D4 Eb4"},
                                         Instrument{"TenorSaxophone", {-8, -1}, -2, "Bb2 C3 D3 Eb3 F3 G3 A3 Bb3"},
                                         Instrument{"BaritoneSaxophone", {-12, -1}, -3, "Eb2 F2 G2 Ab2 Bb2 C3 D3 Eb3"},
                                         Instrument{"EnglishHorn", {-4, 0}, -1, "F3 G3 A3 Bb3 C4 D4 E4 F4"},
                                         Instrument{"Piccolo", {7, 0}, 0, "C5 D5 E5 F5 G5 A5 B5 C6"},
                                         Instrument{"DoubleBass", {-7, 0}, 0, "C3 D3 E3 F3 G3 A3 B3 C4"},
                                         Instrument{"Glockenspiel", {14, 0}, 0, "C6 D6 E6 F6 G6 A6 B6 C7"}),
                         [](const auto& tested) { return std::string(tested.param.name); });

}  // namespace
