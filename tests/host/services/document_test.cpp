#include "host/services/document.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "BrvEDK/Source/documentrecords.h"

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
  saved->entries[1].flags = 0;
  other->entries[0].flags = kNoLegerLines;
  EXPECT_TRUE(document.SaveFrame(saved));
  EXPECT_TRUE(document.FreeFrame(other));
  EXPECT_TRUE(score.entries[0].hidden);
  EXPECT_FALSE(score.entries[1].hidden);
  EXPECT_FALSE(score.entries[2].hidden);
}

TEST_F(Document, RefusesAFrameThatLostOrGainedEntries) {
  for (const std::int16_t count : {std::int16_t{1}, std::int16_t{3}, std::int16_t{-1}}) {
    EXTGF2005a* const frame = document.LoadFrame(1, 1, 0);
    frame->entries[0].flags = kNoLegerLines;
    frame->entryCount = count;
    EXPECT_FALSE(document.SaveFrame(frame)) << count;
    EXPECT_FALSE(score.entries[0].hidden) << count;
  }
  EXPECT_EQ(document.RefusedChange(), "removed entries from staff 1, measure 1, layer 1");
}

TEST_F(Document, TakesNothingOfAFrameWithAnotherChange) {
  EXTGF2005a* const frame = document.LoadFrame(1, 1, 0);
  frame->entries[0].flags = kNoLegerLines;
  frame->entries[1].position += 1;
  EXPECT_FALSE(document.SaveFrame(frame));
  EXPECT_FALSE(score.entries[0].hidden);
  EXPECT_EQ(document.RefusedChange(), "moved entry 2 of staff 1, measure 1, layer 1");
}

TEST_F(Document, ForgetsARefusedChangeThatIsTakenBack) {
  document.StartEdit();
  EXTGF2005a* const frame = document.LoadFrame(1, 1, 0);
  frame->entryCount = 1;
  EXPECT_FALSE(document.SaveFrame(frame));
  EXPECT_NE(document.RefusedChange(), "");
  EXPECT_TRUE(document.CancelEdit());
  EXPECT_EQ(document.RefusedChange(), "");
}

TEST_F(Document, KnowsFramesThatAreNotLoaded) {
  EXTGF2005a* const frame = document.LoadFrame(1, 1, 0);
  EXPECT_TRUE(document.FreeFrame(frame));
  EXPECT_FALSE(document.FreeFrame(frame));
  EXPECT_FALSE(document.SaveFrame(frame));
  EXPECT_FALSE(document.FreeFrame(nullptr));
  EXPECT_FALSE(document.FreeFrame(nullptr));
  EXPECT_EQ(document.MisusesSoFar().Texts(), (std::vector<std::string>{"frees a frame that is not loaded (3 times)",
                                                                       "saves a frame that is not loaded"}));
  EXPECT_EQ(document.LoadedFrames(), 0u);
}

TEST_F(Document, KnowsAFreedFrameFromTheNextOnes) {
  EXTGF2005a* const freed = document.LoadFrame(1, 1, 0);
  EXPECT_TRUE(document.FreeFrame(freed));
  for (int i = 0; i < 10; ++i) {
    EXTGF2005a* const next = document.LoadFrame(1, 1, 0);
    EXPECT_NE(next, freed);
    EXPECT_TRUE(document.FreeFrame(next));
  }
  EXPECT_EQ(document.MisusesSoFar().Texts(), std::vector<std::string>{});
  freed->entryCount = 1;
  EXPECT_EQ(document.MisusesSoFar().Texts(), std::vector<std::string>{"writes to a frame that it has freed"});
  for (int i = 0; i < 200; ++i) EXPECT_TRUE(document.FreeFrame(document.LoadFrame(1, 1, 0)));
  EXPECT_EQ(document.MisusesSoFar().Texts(), std::vector<std::string>{"writes to a frame that it has freed"});
}

TEST_F(Document, KnowsAFreedFrameThatWasWrittenToAmongMany) {
  std::vector<EXTGF2005a*> frames;
  for (int i = 0; i < 100; ++i) frames.push_back(document.LoadFrame(1, 1, 0));
  EXPECT_TRUE(document.FreeFrame(frames[0]));
  frames[0]->entryCount = 1;
  for (std::size_t i = 1; i < frames.size(); ++i) EXPECT_TRUE(document.FreeFrame(frames[i]));
  EXPECT_EQ(document.MisusesSoFar().Texts(), std::vector<std::string>{"writes to a frame that it has freed"});
}

TEST_F(Document, KnowsRecordsOfTheScoreThatWereChanged) {
  EDataStore& records = document.Records();
  const EDataStore::Bytes measure = *records.Find(kMeasureSpecTag, {1, 0});
  records.Save(kMeasureSpecTag, {1, 0}, {1});
  EXPECT_EQ(document.RefusedChange(), "changed the record SOMS (1, 0)");
  records.Save(kMeasureSpecTag, {1, 0}, measure);
  EXPECT_EQ(document.RefusedChange(), "");
  EXPECT_TRUE(records.Erase(kMeasureSpecTag, {1, 0}));
  EXPECT_EQ(document.RefusedChange(), "changed the record SOMS (1, 0)");
}

TEST_F(Document, CountsRecordsThatTheScoreDidNotHave) {
  document.Records().Save(1, {1, 1}, {5});
  EXPECT_TRUE(document.Records().Create(1, {1, 2}, {5}));
  EXPECT_EQ(document.AddedRecords(), 2u);
  EXPECT_TRUE(document.Records().Erase(1, {1, 1}));
  EXPECT_EQ(document.AddedRecords(), 1u);
  EXPECT_EQ(document.RefusedChange(), "");
}

TEST_F(Document, HandsOutCleanRecordsAfterDirtyOnes) {
  EXTGF2005a* const frame = document.LoadFrame(1, 1, 0);
  frame->entries[0].notes[5].noteID = 77;
  frame->hostData[0] = 9;
  document.FreeFrame(frame);
  const EXTGF2005a* const again = document.LoadFrame(1, 1, 0);
  EXPECT_EQ(again->entries[0].notes[5].noteID, 0);
  EXPECT_EQ(again->hostData[0], 0);
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
  EXPECT_EQ(document.MisusesSoFar().Texts(),
            std::vector<std::string>{"ends an edit that it has not started (2 times)"});
}

TEST_F(Document, TakesACancelledEditBackToItsOwnStart) {
  const auto change = [this](int measure, std::uint16_t flags) {
    EXTGF2005a* const frame = document.LoadFrame(1, measure, 0);
    frame->entries[0].flags = flags;
    EXPECT_TRUE(document.SaveFrame(frame));
    EXPECT_TRUE(document.FreeFrame(frame));
  };
  document.StartEdit();
  change(1, kNoLegerLines);
  document.Records().Save(1, {1, 1}, {5});
  EXPECT_TRUE(document.EndEdit());

  document.StartEdit();
  change(1, 0);
  change(3, kNoLegerLines);
  document.Records().Save(1, {1, 1}, {6});
  EXPECT_TRUE(document.CancelEdit());
  EXPECT_TRUE(score.entries[0].hidden) << "as the first edit left it";
  EXPECT_TRUE(score.entries[1].hidden);
  EXPECT_FALSE(score.entries[2].hidden);
  EXPECT_EQ(*document.Records().Find(1, {1, 1}), EDataStore::Bytes{5});
}

TEST_F(Document, TakesNothingBackBeforeTheOutermostEditIsCancelled) {
  const auto isHidden = [this](int measure) { return document.LoadFrame(1, measure, 0)->entries[0].flags != 0; };
  const auto hide = [this](int measure) {
    EXTGF2005a* const frame = document.LoadFrame(1, measure, 0);
    frame->entries[0].flags = kNoLegerLines;
    EXPECT_TRUE(document.SaveFrame(frame));
  };
  document.StartEdit();
  hide(1);
  document.StartEdit();
  hide(3);
  EXPECT_TRUE(document.CancelEdit());
  EXPECT_TRUE(isHidden(1));
  EXPECT_TRUE(isHidden(3)) << "the outer edit goes on";
  EXPECT_TRUE(document.CancelEdit());
  EXPECT_FALSE(isHidden(1));
  EXPECT_FALSE(isHidden(3));
}

TEST_F(Document, CountsTheFramesThatWereSaved) {
  EXTGF2005a* const frame = document.LoadFrame(1, 1, 0);
  EXPECT_EQ(document.SavedFrames(), 0u);
  EXPECT_TRUE(document.SaveFrame(frame));
  EXPECT_TRUE(document.SaveFrame(frame));
  EXPECT_EQ(document.SavedFrames(), 2u);
  frame->entryCount = 1;
  EXPECT_FALSE(document.SaveFrame(frame));
  EXPECT_EQ(document.SavedFrames(), 2u);
}

TEST_F(Document, ReportsTheFirstOfItsRefusedChanges) {
  EXTGF2005a* const first = document.LoadFrame(1, 3, 0);
  first->entryCount = 0;
  EXPECT_FALSE(document.SaveFrame(first));
  EXTGF2005a* const second = document.LoadFrame(1, 1, 0);
  second->entryCount = 9;
  EXPECT_FALSE(document.SaveFrame(second));
  EXPECT_EQ(document.RefusedChange(), "removed entries from staff 1, measure 3, layer 1");
}

TEST_F(Document, KeepsWhatAnEndedEditChanged) {
  document.StartEdit();
  document.Records().Save(1, {1, 1}, {5});
  EXPECT_TRUE(document.EndEdit());
  EXPECT_NE(document.Records().Find(1, {1, 1}), nullptr);
}

}  // namespace
}  // namespace brvhost
