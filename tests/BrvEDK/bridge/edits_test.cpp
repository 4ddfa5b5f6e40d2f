// The counters of edits and frames.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "brevixpdk.h"
#include "recordinghost.h"

namespace {

class Edits : public testing::Test {
 protected:
  void SetUp() override {
    BrevixEditDepth = 0;
    MassEditDepth = 0;
    LoadedTGFCounter = 0;
  }

  RecordingHost host_;
};

TEST_F(Edits, AnEndWithoutAnOpenEditReturnsOneAndDoesNotReachTheHost) {
  EXPECT_EQ(BX_EndBrevixEdit(kBrvVersion), 1);
  EXPECT_EQ(BrevixEditDepth, 0);
  EXPECT_TRUE(host_.Calls().empty());
}

TEST_F(Edits, ACancelWithoutAnOpenEditDoesNothing) {
  BX_CancelBrevixEdit(kBrvVersion);
  EXPECT_EQ(BrevixEditDepth, 0);
  EXPECT_TRUE(host_.Calls().empty());
}

TEST_F(Edits, TwoStartsAndThreeEndsCallTheHostsEndTwice) {
  host_.Answer("BX_EndBrevixEdit", 9);
  BX_StartBrevixEdit(nullptr, kBrvVersion);
  BX_StartBrevixEdit_UTF16(nullptr, kBrvVersion);
  EXPECT_EQ(BrevixEditDepth, 2);
  EXPECT_EQ(BX_EndBrevixEdit(kBrvVersion), 9);
  EXPECT_EQ(BX_EndBrevixEdit(kBrvVersion), 9);
  EXPECT_EQ(BX_EndBrevixEdit(kBrvVersion), 1);
  EXPECT_EQ(BrevixEditDepth, 0);
  EXPECT_EQ(host_.Count("BX_EndBrevixEdit"), 2);
}

TEST_F(Edits, ACancelLeavesTheInnermostEdit) {
  BX_StartBrevixEdit(nullptr, kBrvVersion);
  BX_CancelBrevixEdit(kBrvVersion);
  EXPECT_EQ(BrevixEditDepth, 0);
  EXPECT_EQ(host_.Count("BX_CancelBrevixEdit"), 1);
}

TEST_F(Edits, ADepthBelowZeroStaysAsItIs) {
  BrevixEditDepth = -5;
  EXPECT_EQ(BX_EndBrevixEdit(kBrvVersion), 1);
  BX_CancelBrevixEdit(kBrvVersion);
  EXPECT_EQ(BrevixEditDepth, -5);
  EXPECT_TRUE(host_.Calls().empty());
}

TEST_F(Edits, AnEndAndACancelLeaveOneEditEach) {
  BX_StartBrevixEdit(nullptr, kBrvVersion);
  BX_StartBrevixEdit(nullptr, kBrvVersion);
  BX_StartBrevixEdit(nullptr, kBrvVersion);
  host_.Forget();
  BX_CancelBrevixEdit(0x11112222);
  EXPECT_EQ(BX_EndBrevixEdit(0x33334444), 0);
  BX_CancelBrevixEdit(kBrvVersion);
  EXPECT_EQ(BX_EndBrevixEdit(kBrvVersion), 1);
  EXPECT_THAT(host_.Names(), testing::ElementsAre("BX_CancelBrevixEdit", "BX_EndBrevixEdit", "BX_CancelBrevixEdit"));
  EXPECT_EQ(host_.Calls()[0].arguments[0], 0x11112222u);
  EXPECT_EQ(host_.Calls()[1].arguments[0], 0x33334444u);
}

TEST_F(Edits, TheDepthGoesDownBeforeTheHostIsCalled) {
  for (const char* name : {"BX_EndBrevixEdit", "BX_CancelBrevixEdit"}) {
    host_.On(name, [](const HostCall&) -> std::uint64_t {
      EXPECT_EQ(BrevixEditDepth, 1);
      return 0;
    });
  }
  BrevixEditDepth = 2;
  BX_EndBrevixEdit(kBrvVersion);
  BrevixEditDepth = 2;
  BX_CancelBrevixEdit(kBrvVersion);
  EXPECT_EQ(host_.Calls().size(), 2u);
}

TEST_F(Edits, TheHostsResultOfAnEndIsReadAsSixteenBits) {
  BrevixEditDepth = 2;
  host_.Answer("BX_EndBrevixEdit", 0xFFFF);
  EXPECT_EQ(BX_EndBrevixEdit(kBrvVersion), -1);
  host_.Answer("BX_EndBrevixEdit", 0x10000);
  EXPECT_EQ(BX_EndBrevixEdit(kBrvVersion), 0);
}

static_assert(std::is_void_v<decltype(BX_CancelBrevixEdit(0))>);

TEST_F(Edits, AMassEditEndedWithoutAStartLeavesTheDepthAtMinusOne) {
  BX_EndMassEdit(nullptr, 0, kBrvVersion);
  EXPECT_EQ(MassEditDepth, -1);
  BX_StartMassEdit(nullptr, 1, kBrvVersion);
  EXPECT_EQ(MassEditDepth, 0);
}

TEST_F(Edits, FramesAreCountedWhateverTheHostReturns) {
  EXPECT_EQ(BX_LoadTGF(0, 1, 1, 0, 1, kBrvVersion), nullptr);
  EXPECT_EQ(LoadedTGFCounter, 1);
  EXTGF2005a frame = {};
  BX_FreeTGF(&frame, kBrvVersion);
  BX_FreeTGF(&frame, kBrvVersion);
  EXPECT_EQ(LoadedTGFCounter, -1);
}

TEST_F(Edits, TheCountersGoUpBeforeTheHostIsCalled) {
  host_.On("BX_LoadTGF", [](const HostCall&) -> std::uint64_t {
    EXPECT_EQ(LoadedTGFCounter, 1);
    return 0;
  });
  BX_LoadTGF(0, 1, 1, 0, 1, kBrvVersion);
  EXPECT_EQ(host_.Count("BX_LoadTGF"), 1);
}

}  // namespace
