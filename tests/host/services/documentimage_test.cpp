#include "host/services/documentimage.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "host/services/scorerecords.h"
#include "tests/host/scores.h"

namespace brvhost {
namespace {

Score TwoMeasures() {
  return ReadMusicXml(
      Partwise(Measure(Note() + Note("<chord/>") + Note("<rest/>", " print-leger='no'")) + Measure(Note() + Note())));
}

// Everything in a store, a line a record.
std::vector<std::string> LinesOf(const EDataStore& records) {
  std::vector<std::string> lines;
  records.ForEach([&lines](std::uint32_t tag, EDataKey key, const EDataStore::Bytes& bytes) {
    lines.push_back(std::to_string(tag) + " " + std::to_string(key.recordNumber) + " " +
                    std::to_string(key.recordIndex) + " " + std::string(bytes.begin(), bytes.end()));
  });
  return lines;
}

TEST(DocumentImage, HoldsWhatExtensionsSeeOfAScore) {
  const Score score = TwoMeasures();
  const DocumentImage image = ReadImage(ImageOf(score, {}));
  EXPECT_TRUE(image.blocks.empty());
  EXPECT_EQ(image.score.staves, score.staves);
  EXPECT_EQ(image.score.measures, score.measures);
  EXPECT_EQ(image.score.layers, score.layers);
  ASSERT_EQ(image.score.entries.size(), 4u);
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(image.score.entries[i].position, score.entries[i].position);
    EXPECT_EQ(image.score.entries[i].noteElements, score.entries[i].noteElements);
    EXPECT_EQ(image.score.entries[i].isRest, i == 1);
    EXPECT_EQ(image.score.entries[i].hidden, i == 1);
  }
  ASSERT_EQ(image.score.frames.size(), 2u);
  EXPECT_EQ(image.score.frames[1].measure, 2);
  EXPECT_EQ(image.score.frames[1].firstEntry, 2u);
  ASSERT_EQ(image.score.parts.size(), 1u);
  EXPECT_EQ(image.score.parts[0].firstStaff, 1);
  EDataStore records;
  StoreScoreRecords(score, records);
  ASSERT_FALSE(LinesOf(records).empty());
  EXPECT_EQ(LinesOf(image.records), LinesOf(records));
}

TEST(DocumentImage, HoldsWhatInstrumentsAreCountedBy) {
  const Score score = ReadMusicXml(
      "<score-partwise><part-list><score-part id='A'><score-instrument id='I'/></score-part><score-part id='B'>"
      "<score-instrument id='J'/><score-instrument id='K'/></score-part></part-list><part id='A'><measure>"
      "<attributes><staves>3</staves></attributes></measure></part><part id='B'><measure/></part></score-partwise>");
  const DocumentImage image = ReadImage(ImageOf(score, {}));
  ASSERT_EQ(image.score.parts.size(), 2u);
  EXPECT_EQ(image.score.parts[0].firstStaff, 1);
  EXPECT_EQ(image.score.parts[0].staves, 3);
  EXPECT_EQ(image.score.parts[0].instruments, 1);
  EXPECT_EQ(image.score.parts[1].firstStaff, 4);
  EXPECT_EQ(image.score.parts[1].staves, 1);
  EXPECT_EQ(image.score.parts[1].instruments, 2);
}

TEST(DocumentImage, HoldsTheBlocksOfTheRegion) {
  std::vector<Block> blocks(2);
  blocks[0].region.startStaff = 2;
  blocks[0].layers = {{1, 2}, {4, 4}};
  blocks[1].region.endPosition = 77;
  const DocumentImage image = ReadImage(ImageOf(TwoMeasures(), blocks));
  ASSERT_EQ(image.blocks.size(), 2u);
  for (std::size_t i = 0; i < 2; ++i) {
    EXPECT_EQ(std::memcmp(&image.blocks[i].region, &blocks[i].region, sizeof(EREGION)), 0) << i;
    EXPECT_EQ(image.blocks[i].layers, blocks[i].layers) << i;
  }
}

TEST(HiddenBits, AreTakenOverAsTheyWere) {
  Score score;
  score.entries.resize(11);
  for (const std::size_t i : {0u, 3u, 7u, 8u, 10u}) score.entries[i].hidden = true;
  Score other;
  other.entries.resize(11);
  for (ScoreEntry& entry : other.entries) entry.hidden = !entry.hidden;
  ASSERT_TRUE(TakeHiddenBits(HiddenBits(score), other));
  for (std::size_t i = 0; i < 11; ++i) EXPECT_EQ(other.entries[i].hidden, score.entries[i].hidden) << i;
}

TEST(HiddenBits, OfAnotherSizeAreRefused) {
  Score score;
  score.entries.resize(9);
  EXPECT_FALSE(TakeHiddenBits("", score));
  EXPECT_FALSE(TakeHiddenBits("\xff", score));
  EXPECT_FALSE(TakeHiddenBits("\xff\xff\xff", score));
  for (const ScoreEntry& entry : score.entries) EXPECT_FALSE(entry.hidden);
  EXPECT_TRUE(TakeHiddenBits(std::string(2, '\0'), score));
}

}  // namespace
}  // namespace brvhost
