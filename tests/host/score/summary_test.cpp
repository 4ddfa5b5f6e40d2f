#include "host/score/summary.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/host/scores.h"

namespace brvhost {
namespace {

using Voices = std::vector<std::string>;
using Runs = std::vector<NumberRun>;

std::string NoteOf(const std::string& staff, const std::string& voice) {
  return Note("<voice>" + voice + "</voice><staff>" + staff + "</staff>");
}

TEST(CountsOf, TellsNotesChordsAndRestsApart) {
  const Score score =
      ScoreOf(Note() + Note() + Note("<chord/>") + Note("<chord/>") + Note("<rest/>") + Note("<rest/>") + Note());
  EXPECT_EQ(CountsOf(score), (EntryCounts{.notes = 2, .chords = 1, .rests = 2}));
  EXPECT_EQ(CountsOf(score).All(), score.entries.size());
}

TEST(CountsOf, CountsAChordOnTwoStavesOnEach) {
  const Score score = ScoreOf(Note() + Note("<chord/><staff>2</staff>"));
  EXPECT_EQ(CountsOf(score), (EntryCounts{.notes = 2, .chords = 0, .rests = 0}));
}

TEST(LayersOf, NamesTheVoicesInTheOrderOfTheLayers) {
  const auto groups = LayersOf(ScoreOf(NoteOf("1", "2") + NoteOf("1", "1") + NoteOf("1", "2") + NoteOf("1", "x")));
  ASSERT_EQ(groups.size(), 1u);
  EXPECT_EQ(groups[0].staves, (Runs{{1, 1}}));
  EXPECT_EQ(groups[0].voices, (Voices{"2", "1", "x"}));
}

TEST(LayersOf, PutsStavesTogetherThatAreAlike) {
  const auto groups = LayersOf(ScoreOf("<attributes><staves>7</staves></attributes>" + NoteOf("1", "1") +
                                       NoteOf("2", "5") + NoteOf("4", "1") + NoteOf("5", "1") + NoteOf("6", "5")));
  ASSERT_EQ(groups.size(), 3u);
  EXPECT_EQ(groups[0].staves, (Runs{{1, 1}, {4, 5}}));
  EXPECT_EQ(groups[0].voices, Voices{"1"});
  EXPECT_EQ(groups[1].staves, (Runs{{2, 2}, {6, 6}}));
  EXPECT_EQ(groups[1].voices, Voices{"5"});
  EXPECT_EQ(groups[2].staves, (Runs{{3, 3}, {7, 7}}));
  EXPECT_EQ(groups[2].voices, Voices{});
}

TEST(LayersOf, CountsStavesThroughAllParts) {
  const std::string part = "<measure>" + Note() + "</measure></part>";
  const auto groups =
      LayersOf(ReadMusicXml("<score-partwise><part id='A'>" + part + "<part id='B'>" + part + "</score-partwise>"));
  ASSERT_EQ(groups.size(), 1u);
  EXPECT_EQ(groups[0].staves, (Runs{{1, 2}}));
}

TEST(LayersOf, IsEmptyForAScoreWithoutStaves) { EXPECT_TRUE(LayersOf(Score()).empty()); }

}  // namespace
}  // namespace brvhost
