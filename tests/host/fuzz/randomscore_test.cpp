#include "host/fuzz/randomscore.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <tuple>
#include <vector>

namespace brvhost {
namespace {

constexpr int kSeeds = 3000;

Score ScoreOfSeed(std::uint64_t seed) {
  RandomNumbers random(seed);
  return RandomScore(random);
}

auto PlaceOf(const ScoreFrame& frame) {
  return std::make_tuple(int{frame.staff}, int{frame.layer}, int{frame.measure});
}

void ExpectSound(const ScoreFrame& frame, const Score& score) {
  EXPECT_TRUE(frame.staff >= 1 && frame.staff <= score.staves);
  EXPECT_TRUE(frame.measure >= 1 && frame.measure <= score.measures);
  EXPECT_LT(frame.layer, score.layers);
  ASSERT_GT(frame.entryCount, 0U);
  const auto entries = score.EntriesOf(frame);
  EXPECT_TRUE(std::ranges::is_sorted(entries, {}, &ScoreEntry::position));
  EXPECT_GE(entries.front().position, 0);
  EXPECT_LE(entries.back().position, score.LengthOf(frame.measure));
  for (const ScoreEntry& entry : entries) {
    EXPECT_TRUE(entry.noteElements >= 1 && entry.noteElements <= (entry.isRest ? 1 : 12));
  }
}

TEST(RandomScore, IsOneThatAFileCouldHold) {
  for (int seed = 0; seed < kSeeds; ++seed) {
    const Score score = ScoreOfSeed(static_cast<std::uint64_t>(seed));
    SCOPED_TRACE(seed);
    ASSERT_TRUE(score.staves >= 1 && score.staves <= kMaxStaves && score.measures <= kMaxMeasures);
    EXPECT_EQ(score.measureLengths.size(), static_cast<std::size_t>(score.measures));
    EXPECT_TRUE(std::ranges::is_sorted(score.frames, {}, PlaceOf));
    std::size_t entries = 0;
    for (const ScoreFrame& frame : score.frames) {
      ExpectSound(frame, score);
      EXPECT_EQ(frame.firstEntry, entries);
      entries += frame.entryCount;
    }
    EXPECT_EQ(score.entries.size(), entries);
    EXPECT_EQ(score.parts.back().firstStaff + score.parts.back().staves - 1, score.staves);
  }
}

TEST(RandomScore, IsTheSameForTheSameSeed) {
  const auto facts = [](const Score& score) {
    std::vector<std::int32_t> numbers(score.measureLengths);
    for (const ScoreEntry& entry : score.entries) numbers.push_back(entry.position);
    return numbers;
  };
  for (std::uint64_t seed = 0; seed < 100; ++seed) {
    EXPECT_EQ(facts(ScoreOfSeed(seed)), facts(ScoreOfSeed(seed)));
  }
}

TEST(RandomScore, IsOfAllSizes) {
  bool isWithoutMeasures = false;
  bool isWithoutFrames = false;
  bool hasMostMeasures = false;
  bool hasMostStaves = false;
  bool hasMoreLayers = false;
  for (std::uint64_t seed = 0; seed < 20000; ++seed) {
    const Score score = ScoreOfSeed(seed);
    isWithoutMeasures |= score.measures == 0;
    isWithoutFrames |= score.measures > 0 && score.frames.empty();
    hasMostMeasures |= score.measures == kMaxMeasures;
    hasMostStaves |= score.staves == kMaxStaves;
    hasMoreLayers |= score.layers > kMinLayers;
  }
  EXPECT_TRUE(isWithoutMeasures && isWithoutFrames && hasMostMeasures && hasMostStaves && hasMoreLayers);
}

void ExpectWithin(const EREGION& region, const Score& score) {
  EXPECT_TRUE(1 <= region.startStaff && region.startStaff <= region.endStaff && region.endStaff <= score.staves);
  ASSERT_TRUE(1 <= region.startMeasure && region.startMeasure <= region.endMeasure &&
              region.endMeasure <= score.measures);
  EXPECT_TRUE(0 <= region.startPosition && region.startPosition <= score.LengthOf(region.startMeasure));
  EXPECT_TRUE(region.endPosition == INT32_MAX || region.endPosition <= score.LengthOf(region.endMeasure));
  EXPECT_TRUE(region.startMeasure != region.endMeasure || region.startPosition <= region.endPosition);
}

TEST(RandomBlock, LiesInItsScore) {
  for (int seed = 0; seed < kSeeds; ++seed) {
    RandomNumbers random(static_cast<std::uint64_t>(seed));
    const Score score = RandomScore(random);
    const Block block = RandomBlock(random, score);
    SCOPED_TRACE(seed);
    if (score.measures > 0) ExpectWithin(block.region, score);
    for (const NumberRun& layers : block.layers) {
      EXPECT_TRUE(1 <= layers.first && layers.first <= layers.last && layers.last <= score.layers);
    }
  }
}

TEST(RandomBlock, EndsWithTheLastOfVeryManyMeasures) {
  int count = 0;
  for (std::uint64_t seed = 0; seed < 40000; ++seed) {
    RandomNumbers random(seed);
    const Score score = RandomScore(random);
    if (score.measures != kMaxMeasures) continue;
    ++count;
    const Block block = RandomBlock(random, score);
    EXPECT_EQ(+block.region.endMeasure, kMaxMeasures);
    EXPECT_GT(+block.region.startMeasure, kMaxMeasures - 4);
  }
  EXPECT_GT(count, 0);
}

}  // namespace
}  // namespace brvhost
