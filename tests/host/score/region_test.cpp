#include "host/score/region.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "host/text/inputerror.h"

namespace brvhost {
namespace {

// Four staves, ten measures of four quarters. The first staff has one layer, the second three, the others none.
Score FourByTen() {
  Score score;
  score.staves = 4;
  score.measures = 10;
  score.measureLengths.assign(10, 4 * kTicksPerQuarter);
  score.frames = {{.staff = 1, .measure = 1, .layer = 0}, {.staff = 2, .measure = 7, .layer = 2}};
  return score;
}

std::vector<NumberRange> Ranges(const char* list) {
  std::vector<NumberRange> ranges;
  for (const std::string& text : TextsOfList(list)) {
    if (const auto range = ParseNumberRange(text)) ranges.push_back(*range);
  }
  return ranges;
}

// Why the region is refused; nothing if it is not.
std::string WrongWith(const RegionRequest& request, const Score& score) {
  try {
    BlocksOf(request, score);
    return "";
  } catch (const InputError& error) {
    return error.what();
  }
}

// The blocks as texts: "staves 1-4, measures 1@0-10@end, layers 1-2".
std::vector<std::string> TextsOf(const std::vector<Block>& blocks) {
  std::vector<std::string> texts;
  for (const auto& [region, layers] : blocks) {
    const std::string end = region.endPosition == INT32_MAX ? "end" : std::to_string(region.endPosition);
    texts.push_back(fmt::format("staves {}-{}, measures {}@{}-{}@{}, layers {}", +region.startStaff, +region.endStaff,
                                +region.startMeasure, +region.startPosition, +region.endMeasure, end, TextOf(layers)));
  }
  return texts;
}

using Texts = std::vector<std::string>;

std::vector<MeasureRange> Measures(const char* list) {
  std::vector<MeasureRange> measures;
  for (const NumberRange& range : Ranges(list)) measures.push_back({range, {}, {}});
  return measures;
}

RegionRequest Positions(const char* measures, const char* startAt, const char* endAt) {
  RegionRequest request;
  request.measures = Measures(measures);
  request.startAt = ParseFraction(startAt);
  request.endAt = ParseFraction(endAt);
  return request;
}

RegionRequest Layers(const char* staves, const char* layers) {
  RegionRequest request;
  request.staves = Ranges(staves);
  request.layers = Ranges(layers);
  return request;
}

RegionRequest StavesAndMeasures(const char* staves, const char* measures) {
  RegionRequest request;
  request.staves = Ranges(staves);
  request.measures = Measures(measures);
  return request;
}

TEST(BlocksOf, AreNoneWhenNothingIsAskedFor) { EXPECT_TRUE(BlocksOf({}, FourByTen()).empty()); }

TEST(BlocksOf, AreTheWholeScoreAsOneWhereThatIsAskedFor) {
  RegionRequest request;
  request.all = true;
  EXPECT_EQ(TextsOf(BlocksOf(request, FourByTen())), Texts{"staves 1-4, measures 1@0-10@end, layers "});
}

TEST(BlocksOf, ReachAsFarAsTheScoreWhereNothingElseIsGiven) {
  RegionRequest request;
  request.startAt = Fraction{5, 2};
  EXPECT_EQ(TextsOf(BlocksOf(request, FourByTen())), Texts{"staves 1-4, measures 1@25200-10@end, layers "});
}

TEST(BlocksOf, AreTheWholeScoreWhereOnlyLayersAreChosen) {
  EXPECT_EQ(TextsOf(BlocksOf(Layers("", "1,3"), FourByTen())), Texts{"staves 1-4, measures 1@0-10@end, layers 1, 3"});
}

TEST(BlocksOf, EndWithTheScore) {
  EXPECT_EQ(TextsOf(BlocksOf(StavesAndMeasures("3-9", "10-"), FourByTen())),
            Texts{"staves 3-4, measures 10@0-10@end, layers "});
  EXPECT_EQ(TextsOf(BlocksOf(Layers("1-2", "2-7"), FourByTen())), Texts{"staves 1-2, measures 1@0-10@end, layers 2-3"});
}

TEST(BlocksOf, AreOneForEachRunOfStavesAndOfMeasures) {
  EXPECT_EQ(TextsOf(BlocksOf(StavesAndMeasures("4,1,2", "9-,1,2-3,3-5"), FourByTen())),
            (Texts{"staves 1-2, measures 1@0-5@end, layers ", "staves 1-2, measures 9@0-10@end, layers ",
                   "staves 4-4, measures 1@0-5@end, layers ", "staves 4-4, measures 9@0-10@end, layers "}));
}

TEST(BlocksOf, StartAndEndAtAPositionOnlyInTheFirstAndLastMeasureOfAll) {
  RegionRequest request = Positions("1-2,4,7-8", "1", "2");
  request.staves = Ranges("1,3");
  EXPECT_EQ(TextsOf(BlocksOf(request, FourByTen())),
            (Texts{"staves 1-1, measures 1@10080-2@end, layers ", "staves 1-1, measures 4@0-4@end, layers ",
                   "staves 1-1, measures 7@0-8@20160, layers ", "staves 3-3, measures 1@10080-2@end, layers ",
                   "staves 3-3, measures 4@0-4@end, layers ", "staves 3-3, measures 7@0-8@20160, layers "}));
  EXPECT_EQ(TextsOf(BlocksOf(Positions("8,2", "3", "1"), FourByTen())),
            (Texts{"staves 1-4, measures 2@30240-2@end, layers ", "staves 1-4, measures 8@0-8@10080, layers "}));
}

TEST(BlocksOf, EndAtAPositionOfTheLastMeasureUnlessThatLiesBeyondTheScore) {
  const auto endOf = [](const char* measures, const char* endAt) {
    return +BlocksOf(Positions(measures, "", endAt), FourByTen()).back().region.endPosition;
  };
  EXPECT_EQ(endOf("2-9", "1"), 10080);
  EXPECT_EQ(endOf("2-10", "1"), 10080);
  EXPECT_EQ(endOf("2-", "1"), 10080);
  EXPECT_EQ(endOf("", "1"), 10080);
  EXPECT_EQ(endOf("2-11", "1"), 0x7FFFFFFF);
  EXPECT_EQ(endOf("2-11,4", "1"), 0x7FFFFFFF);
  EXPECT_EQ(endOf("2-11", "5"), 0x7FFFFFFF) << "the measure may have that position in another score";
}

TEST(BlocksOf, TakeMeasuresByTheirPrintedNumbers) {
  Score score = FourByTen();
  for (const char* const number : {"0", "1", "2", "3", "1", "2"}) score.measureNumbers.push_back({number, true});
  RegionRequest request = Positions("", "1", "2");
  request.measures = {*ParsePrintedRange("m1/2-"), *ParsePrintedRange("m0"), *ParsePrintedRange("m2/1-m3")};
  EXPECT_EQ(TextsOf(BlocksOf(request, score)),
            (Texts{"staves 1-4, measures 1@10080-1@end, layers ", "staves 1-4, measures 3@0-10@20160, layers "}));
}

TEST(BlocksOf, RefuseToStartBeyondTheScore) {
  EXPECT_EQ(WrongWith(StavesAndMeasures("5", ""), FourByTen()),
            "the region starts at staff 5, but the score has only 4");
  EXPECT_EQ(WrongWith(StavesAndMeasures("7,5-6", ""), FourByTen()),
            "the region starts at staff 5, but the score has only 4");
  EXPECT_EQ(WrongWith(StavesAndMeasures("2", "12,1"), FourByTen()),
            "the region goes on at measure 12, but the score has only 10");
}

TEST(BlocksOf, RefuseAPositionBeyondItsMeasure) {
  Score score = FourByTen();
  score.measureLengths[2] = 5 * kTicksPerQuarter / 2;
  EXPECT_EQ(WrongWith(Positions("3-4", "5/2", "4"), score), "") << "the length of the measure is one of its positions";
  EXPECT_EQ(WrongWith(Positions("3-4", "2.75", ""), score),
            "the region starts at position 11/4 in measure 3, whose length is only 5/2 (in quarter notes)");
  EXPECT_EQ(WrongWith(Positions("3-4", "", "5"), score),
            "the region ends at position 5 in measure 4, whose length is only 4 (in quarter notes)");
  EXPECT_EQ(WrongWith(Positions("2-3", "", "999999999999"), score),
            "the region ends at position 999999999999 in measure 3, whose length is only 5/2 (in quarter notes)");
  EXPECT_EQ(WrongWith(Positions("", "1", ""), Score()), "the region starts in a measure, but the score has none");
}

TEST(BlocksOf, RefuseToStartAfterTheirEnd) {
  EXPECT_EQ(WrongWith(Positions("10-", "3", "5/2"), FourByTen()),
            "the region starts at position 3 in measure 10, after its end at position 5/2 (in quarter notes)");
  EXPECT_EQ(WrongWith(Positions("10-", "3", "3"), FourByTen()), "");
  EXPECT_EQ(WrongWith(Positions("9-", "3", "1"), FourByTen()), "");
  EXPECT_EQ(WrongWith(Positions("10-11", "3", "1"), FourByTen()), "");
}

TEST(BlocksOf, RefuseALayerThatNoneOfTheirStavesHas) {
  EXPECT_EQ(WrongWith(Layers("1-2", "3"), FourByTen()), "");
  EXPECT_EQ(WrongWith(Layers("1", "1,3"), FourByTen()), "the region is to show layer 3, but its staves have only 1");
  EXPECT_EQ(WrongWith(Layers("", "4"), FourByTen()), "the region is to show layer 4, but its staves have only 3");
  EXPECT_EQ(WrongWith(Layers("3-", "1"), FourByTen()), "the region is to show layer 1, but its staves have only 0");
}

}  // namespace
}  // namespace brvhost
