#include "host/score/region.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
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

// Why the region is refused; nothing if it is not.
std::string WrongWith(const RegionRequest& request, const Score& score) {
  try {
    RegionOf(request, score);
    return "";
  } catch (const InputError& error) {
    return error.what();
  }
}

RegionRequest Positions(const char* measures, const char* startAt, const char* endAt) {
  RegionRequest request;
  request.measures = ParseNumberRange(measures);
  request.startAt = ParseFraction(startAt);
  request.endAt = ParseFraction(endAt);
  return request;
}

RegionRequest Layers(const char* staves, std::vector<int> layers) {
  RegionRequest request;
  request.staves = ParseNumberRange(staves);
  request.layers = std::move(layers);
  return request;
}

TEST(RegionOf, IsNoneWhenNothingIsAskedFor) { EXPECT_FALSE(RegionOf({}, FourByTen())); }

TEST(RegionOf, ReachesAsFarAsTheScoreWhereNothingElseIsGiven) {
  RegionRequest request;
  request.startAt = Fraction{5, 2};
  const auto region = RegionOf(request, FourByTen());
  ASSERT_TRUE(region);
  EXPECT_EQ(+region->startStaff, 1);
  EXPECT_EQ(+region->endStaff, 4);
  EXPECT_EQ(+region->startMeasure, 1);
  EXPECT_EQ(+region->endMeasure, 10);
  EXPECT_EQ(+region->startPosition, 25200);
  EXPECT_EQ(+region->endPosition, 0x7FFFFFFF);
}

TEST(RegionOf, IsTheWholeScoreWhereOnlyLayersAreChosen) {
  const auto region = RegionOf(Layers("", {0, 2}), FourByTen());
  ASSERT_TRUE(region);
  EXPECT_EQ(+region->startStaff, 1);
  EXPECT_EQ(+region->endStaff, 4);
  EXPECT_EQ(+region->startMeasure, 1);
  EXPECT_EQ(+region->endMeasure, 10);
  EXPECT_EQ(+region->startPosition, 0);
  EXPECT_EQ(+region->endPosition, 0x7FFFFFFF);
}

TEST(RegionOf, EndsWithTheScore) {
  RegionRequest request;
  request.staves = ParseNumberRange("3-9");
  request.measures = ParseNumberRange("10-");
  const auto region = RegionOf(request, FourByTen());
  EXPECT_EQ(+region->startStaff, 3);
  EXPECT_EQ(+region->endStaff, 4);
  EXPECT_EQ(+region->startMeasure, 10);
  EXPECT_EQ(+region->endMeasure, 10);
}

TEST(RegionOf, EndsAtAPositionOfTheLastMeasureUnlessThatLiesBeyondTheScore) {
  const auto endOf = [](const char* measures, const char* endAt) {
    return +RegionOf(Positions(measures, "", endAt), FourByTen())->endPosition;
  };
  EXPECT_EQ(endOf("2-9", "1"), 10080);
  EXPECT_EQ(endOf("2-10", "1"), 10080);
  EXPECT_EQ(endOf("2-", "1"), 10080);
  EXPECT_EQ(endOf("", "1"), 10080);
  EXPECT_EQ(endOf("2-11", "1"), 0x7FFFFFFF);
  EXPECT_EQ(endOf("2-11", "5"), 0x7FFFFFFF) << "the measure may have that position in another score";
}

TEST(RegionOf, RefusesToStartBeyondTheScore) {
  RegionRequest request;
  request.staves = ParseNumberRange("5");
  EXPECT_EQ(WrongWith(request, FourByTen()), "the region starts at staff 5, but the score has only 4");
}

TEST(RegionOf, RefusesAPositionBeyondItsMeasure) {
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

TEST(RegionOf, RefusesToStartAfterItsEnd) {
  EXPECT_EQ(WrongWith(Positions("10-", "3", "5/2"), FourByTen()),
            "the region starts at position 3 in measure 10, after its end at position 5/2 (in quarter notes)");
  EXPECT_EQ(WrongWith(Positions("10-", "3", "3"), FourByTen()), "");
  EXPECT_EQ(WrongWith(Positions("9-", "3", "1"), FourByTen()), "");
  EXPECT_EQ(WrongWith(Positions("10-11", "3", "1"), FourByTen()), "");
}

TEST(RegionOf, RefusesALayerThatNoneOfItsStavesHas) {
  EXPECT_EQ(WrongWith(Layers("1-2", {2}), FourByTen()), "");
  EXPECT_EQ(WrongWith(Layers("1", {0, 2}), FourByTen()), "the region is to show layer 3, but its staves have only 1");
  EXPECT_EQ(WrongWith(Layers("", {3}), FourByTen()), "the region is to show layer 4, but its staves have only 3");
  EXPECT_EQ(WrongWith(Layers("3-", {0}), FourByTen()), "the region is to show layer 1, but its staves have only 0");
}

}  // namespace
}  // namespace brvhost
