// A score that the recording host serves, by way of the kit's calls.
#include "testscore.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "brevixpdk.h"
#include "documentrecords.h"
#include "documentspecs.h"
#include "transposition.h"

namespace {

using testing::ElementsAre;

class Score : public testing::Test {
 protected:
  static EXTGF2005a* Load(int staff, int measure, int layer = 0) {
    return BX_LoadTGF(0, staff, measure, layer, 1, kBrvVersion);
  }

  RecordingHost host_;
  TestScore score_{host_};
};

TEST_F(Score, ServesTheFramesThatItHas) {
  score_.Put({.staff = 2, .measure = 3}, {NoteAt(0), RestAt(kQuarterNote)});
  EXPECT_EQ(Load(1, 3), nullptr);
  EXPECT_EQ(Load(2, 2), nullptr);
  EXPECT_EQ(Load(2, 3, 1), nullptr);
  EXTGF2005a* const frame = Load(2, 3);
  ASSERT_NE(frame, nullptr);
  ASSERT_EQ(frame->entryCount, 2);
  EXPECT_EQ(frame->entries[0].noteCount, 1);
  EXPECT_EQ(frame->entries[0].notes[0].noteID, 1);
  EXPECT_EQ(frame->entries[0].entryFlags[3], 0x40);
  EXPECT_EQ(frame->entries[1].noteCount, 0);
  EXPECT_EQ(frame->entries[1].entryFlags[3], 0);
  EXPECT_EQ(int{frame->entries[1].position}, 10080);
  BX_FreeTGF(frame, kBrvVersion);
}

TEST_F(Score, KeepsWhatIsSavedAndNothingElse) {
  score_.Put({}, {NoteAt(0)});
  EXTGF2005a* const frame = Load(1, 1);
  frame->entries[0].flags = 0x40;
  EXPECT_EQ(score_.At({})[0].flags, 0);
  EXPECT_EQ(BX_SaveTGF(frame, kBrvVersion), 1);
  EXPECT_EQ(score_.At({})[0].flags, 0x40);
  frame->entries[0].flags = 0;
  BX_FreeTGF(frame, kBrvVersion);
  EXPECT_EQ(score_.At({})[0].flags, 0x40);
}

TEST_F(Score, CountsTheFramesThatAreNotFreed) {
  score_.Put({}, {NoteAt(0)});
  EXTGF2005a* const first = Load(1, 1);
  EXTGF2005a* const second = Load(1, 1);
  EXPECT_NE(first, second);
  EXPECT_EQ(score_.LoadedFrames(), 2);
  BX_FreeTGF(first, kBrvVersion);
  BX_FreeTGF(first, kBrvVersion);
  EXPECT_EQ(score_.LoadedFrames(), 1);
  BX_FreeTGF(second, kBrvVersion);
  EXPECT_EQ(score_.LoadedFrames(), 0);
}

TEST_F(Score, HasItsFramesAsItsRegion) {
  score_.Put({.staff = 3, .measure = 2}, {});
  score_.Put({.staff = 1, .measure = 7, .layer = 2}, {});
  const EREGION region = score_.Region();
  EXPECT_EQ(region.startStaff, 1);
  EXPECT_EQ(region.startMeasure, 1);
  EXPECT_EQ(int{region.startPosition}, 0);
  EXPECT_EQ(region.endStaff, 3);
  EXPECT_EQ(region.endMeasure, 7);
  EXPECT_EQ(int{region.endPosition}, INT32_MAX);
  EXPECT_EQ(BX_GetMaxLayers(kBrvVersion), 3);
  EXPECT_NE(BX_GetShowLayer(2, kBrvVersion), 0);
}

TEST_F(Score, ServesAndKeepsRecords) {
  EDTMeasureSpec2014 measure = {};
  measure.beats = 3;
  measure.beatUnit = 8;
  score_.PutRecord(kMeasureSpecTag, 5, measure);
  tTimeSig time = {0, 0};
  BXUtilGetTimeSig(5, &time);
  EXPECT_EQ(time.beats, 3);
  EXPECT_EQ(time.beatUnit, 8);

  EDataKey key = {7, 1};
  std::uint8_t bytes[] = {1, 2, 3};
  EXPECT_EQ(BX_SaveEData(RecordTag("abcd"), &key, bytes, 3, kBrvVersion), 1);
  ASSERT_NE(score_.RecordAt(RecordTag("abcd"), 7, 1), nullptr);
  EXPECT_THAT(*score_.RecordAt(RecordTag("abcd"), 7, 1), ElementsAre(1, 2, 3));
  EXPECT_EQ(score_.RecordAt(RecordTag("abcd"), 7), nullptr);
}

TEST_F(Score, NamesAStaffAndLeavesTheRestOfItsRecord) {
  EDTStaffSpec2014 staff = {};
  staff.transposition = 0x0042;
  score_.PutRecord(kStaffSpecTag, 2, staff);
  score_.NameStaff(2, u"Klarinette");
  UniChar name[32] = {};
  EXPECT_EQ(BXUtilGetStaffName(2, 0, name, 31), 10);
  EXPECT_EQ(std::u16string(reinterpret_cast<char16_t*>(name)), u"Klarinette");
  short code = 0;
  BXUtilGetStaffTrans(2, &code);
  EXPECT_EQ(code, 0x0042);
}

}  // namespace
