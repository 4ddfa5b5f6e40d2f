#include "host/commands/infolines.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "tests/host/scores.h"

namespace brvhost {
namespace {

using Lines = std::vector<std::string>;

TEST(LayerLines, AreOneForAQuartetOfOneVoiceOnEachStaff) {
  EXPECT_EQ(LayerLines(WithVoicesOnStaves({{"1"}, {"1"}, {"1"}, {"1"}})), Lines{"staves 1-4: 1"});
}

TEST(LayerLines, NameOnlyVoicesThatAreNoLayersOfTheSameNumber) {
  EXPECT_EQ(LayerLines(WithVoicesOnStaves(
                {{"1", "2", "3"}, {"1", "3", "2"}, {"5", "6"}, {"1", "2", "9", "4"}, {}, {"1", "", "3"}})),
            (Lines{"staff 1: 1-3", "staff 2: 1, 2 (voice 3), 3 (voice 2)", "staff 3: 1 (voice 5), 2 (voice 6)",
                   "staff 4: 1-2, 3 (voice 9), 4", "staff 5: none", "staff 6: 1, 2 (a voice without a name), 3"}));
}

TEST(LayerLines, AreSharedByStavesThatAreAlike) {
  EXPECT_EQ(LayerLines(WithVoicesOnStaves({{"1"}, {"5"}, {"1"}, {"1"}, {"5"}})),
            (Lines{"staves 1, 3-4: 1", "staves 2, 5: 1 (voice 5)"}));
}

Score Numbered(std::vector<MeasureNumber> numbers) {
  Score score;
  score.measures = static_cast<int>(numbers.size());
  score.measureNumbers = std::move(numbers);
  return score;
}

TEST(PrintedLines, AreNoneWhereEachNumberIsItsMeasuresOrder) {
  EXPECT_EQ(PrintedLines(Numbered({{"1"}, {"2"}, {"3"}})), Lines{});
  EXPECT_EQ(PrintedLines(Score()), Lines{});
}

TEST(PrintedLines, AreOneForEachSequenceOfNumbers) {
  EXPECT_EQ(PrintedLines(Numbered({{"0", false}, {"1"}, {"2"}, {"X1", false}, {"1"}, {"2"}})),
            (Lines{"1-4: (0), 1-2, (X1)", "5-6: 1-2"}));
  EXPECT_EQ(PrintedLines(Numbered({{"1"}, {"2", false}})), Lines{"1-2: 1, (2)"});
}

TEST(PrintedLines, AreThereWhereTheFirstPartHasFewerMeasures) {
  Score score = Numbered({{"1"}, {"2"}});
  score.measures = 3;
  EXPECT_EQ(PrintedLines(score), Lines{"1-2: 1-2"});
}

}  // namespace
}  // namespace brvhost
