#include "host/services/document.h"

#include <gtest/gtest.h>

#include "tests/host/scores.h"

namespace brvhost {
namespace {

class Document : public testing::Test {
 protected:
  Score score = ReadMusicXml(Partwise(Measure(Note() + Note("<chord/>") + Note("<rest/>", " print-leger='no'")) +
                                      "<measure/>" + Measure(Note())));
  OpenDocument document{score};
};

TEST_F(Document, LoadsTheEntriesOfAPlace) {
  EXTGF2005a* const frame = document.LoadFrame(1, 1, 0);
  ASSERT_NE(frame, nullptr);
  ASSERT_EQ(frame->entryCount, 2);
  const EXENTRY& chord = frame->entries[0];
  EXPECT_EQ(+chord.noteCount, 2);
  EXPECT_EQ(+chord.notes[0].noteID, 1);
  EXPECT_EQ(+chord.notes[1].noteID, 2);
  EXPECT_EQ(+chord.notes[1].noteWord, 2);
  EXPECT_EQ(+chord.flags, 0);
  EXPECT_EQ(+chord.entryFlags[3], 0x40);
  const EXENTRY& rest = frame->entries[1];
  EXPECT_EQ(+rest.noteCount, 0);
  EXPECT_EQ(+rest.flags, kNoLegerLines);
  EXPECT_EQ(+rest.position, 10080);
  EXPECT_EQ(+rest.entryFlags[3], 0);
}

TEST_F(Document, HasNoFrameWhereThereAreNoEntries) {
  EXPECT_EQ(document.LoadFrame(1, 2, 0), nullptr);
  EXPECT_EQ(document.LoadFrame(1, 1, 1), nullptr);
  EXPECT_EQ(document.LoadFrame(2, 1, 0), nullptr);
  EXPECT_EQ(document.LoadFrame(0, 0, -1), nullptr);
  EXPECT_EQ(document.LoadFrame(1, 99, 0), nullptr);
}

TEST_F(Document, TakesOverTheBitsOfASavedFrameOnly) {
  EXTGF2005a* const saved = document.LoadFrame(1, 1, 0);
  EXTGF2005a* const other = document.LoadFrame(1, 3, 0);
  saved->entries[0].flags = kNoLegerLines;
  saved->entries[1].flags = 0x8000;
  other->entries[0].flags = kNoLegerLines;
  EXPECT_TRUE(document.SaveFrame(saved));
  EXPECT_TRUE(document.FreeFrame(other));
  EXPECT_TRUE(score.entries[0].hidden);
  EXPECT_FALSE(score.entries[1].hidden);
  EXPECT_FALSE(score.entries[2].hidden);
}

TEST_F(Document, RefusesAFrameThatLostOrGainedEntries) {
  EXTGF2005a* const frame = document.LoadFrame(1, 1, 0);
  frame->entries[0].flags = kNoLegerLines;
  frame->entryCount = 1;
  EXPECT_FALSE(document.SaveFrame(frame));
  EXPECT_FALSE(score.entries[0].hidden);
}

TEST_F(Document, KnowsFramesThatAreNotLoaded) {
  EXTGF2005a* const frame = document.LoadFrame(1, 1, 0);
  EXPECT_TRUE(document.FreeFrame(frame));
  EXPECT_FALSE(document.FreeFrame(frame));
  EXPECT_FALSE(document.SaveFrame(frame));
  EXPECT_FALSE(document.FreeFrame(nullptr));
  EXPECT_EQ(document.StrayFrames(), 3u);
  EXPECT_EQ(document.LoadedFrames(), 0u);
}

TEST_F(Document, HandsOutCleanRecordsAfterDirtyOnes) {
  EXTGF2005a* const frame = document.LoadFrame(1, 1, 0);
  frame->entries[0].notes[5].noteID = 77;
  frame->hostData[0] = 9;
  document.FreeFrame(frame);
  const EXTGF2005a* const again = document.LoadFrame(1, 1, 0);
  EXPECT_EQ(again->entries[0].notes[5].noteID, 0);
}

TEST_F(Document, TakesACancelledEditBackWithItsRecords) {
  document.StartEdit();
  document.StartEdit();
  EXTGF2005a* const frame = document.LoadFrame(1, 3, 0);
  frame->entries[0].flags = kNoLegerLines;
  EXPECT_TRUE(document.SaveFrame(frame));
  document.Records().Save(1, {1, 1}, {5});
  EXPECT_TRUE(document.EndEdit());
  EXPECT_TRUE(document.CancelEdit());
  EXPECT_FALSE(score.entries[2].hidden);
  EXPECT_EQ(document.Records().Find(1, {1, 1}), nullptr);
  EXPECT_FALSE(document.CancelEdit());
  EXPECT_FALSE(document.EndEdit());
}

TEST_F(Document, KeepsWhatAnEndedEditChanged) {
  document.StartEdit();
  document.Records().Save(1, {1, 1}, {5});
  EXPECT_TRUE(document.EndEdit());
  EXPECT_NE(document.Records().Find(1, {1, 1}), nullptr);
}

}  // namespace
}  // namespace brvhost
