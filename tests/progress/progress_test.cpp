// Progress reports. Time passes by setting the start back.
#include <brvplatform.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "progress.h"
#include "recordinghost.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::int64_t kMs = 1'000'000;
constexpr unsigned char kPeriodKey = 47;

class Progress : public testing::Test {
 protected:
  void SetUp() override {
    host_.On("BX_StartMassEdit", [this](const HostCall&) { return reinterpret_cast<std::uint64_t>(&handle_); });
  }

  void TearDown() override {
    BrvPlatformSetModifierFlags(0);
    BrvPlatformSetKeyDown(kPeriodKey, false);
  }

  void Start(int jobSize) { BXUtilPRStart(&report_, jobSize); }

  // As if the report had been started so long ago.
  void SetElapsed(std::int64_t ms) {
    tProgressReport now = {};
    BXUtilPRStart(&now, 0);
    report_.startTime = now.startTime - ms * kMs;
  }

  int UpdateAfter(std::int64_t ms, int unitsDone) {
    SetElapsed(ms);
    return BXUtilPRUpdate(&report_, unitsDone);
  }

  int handle_ = 0;
  tProgressReport report_ = {};
  RecordingHost host_;
};

TEST_F(Progress, StartShowsNothing) {
  report_.massEdit = &handle_;
  report_.unitsReported = 7;
  Start(100);
  EXPECT_EQ(report_.massEdit, nullptr);
  EXPECT_EQ(report_.jobSize, 100);
  EXPECT_EQ(report_.unitsReported, 0);
  EXPECT_EQ(report_.nextCheckMs, 667);
  EXPECT_THAT(host_.Calls(), IsEmpty());
}

TEST_F(Progress, AJobWithinTwoThirdsOfASecondIsNeverShown) {
  Start(10);
  for (int done = 1; done <= 10; ++done) EXPECT_EQ(UpdateAfter(60 * done, done), 1);
  BXUtilPREnd(&report_, 0);
  EXPECT_THAT(host_.Calls(), IsEmpty());
}

TEST_F(Progress, ALongJobOpensTheDisplayAndReportsWhatIsDone) {
  Start(100);
  EXPECT_EQ(UpdateAfter(700, 10), 1);
  EXPECT_THAT(host_.Texts(), ElementsAre("BX_StartMassEdit(0, 100)", "BX_MassEditProgress(pointer, 10, 0, 0, -1)"));
  EXPECT_EQ(report_.massEdit, &handle_);
  EXPECT_EQ(report_.unitsReported, 10);
  EXPECT_GE(report_.nextCheckMs, 733);
}

TEST_F(Progress, LaterReportsAreIncrements) {
  Start(100);
  UpdateAfter(700, 10);
  host_.Forget();
  EXPECT_EQ(UpdateAfter(800, 25), 1);
  EXPECT_THAT(host_.Texts(), ElementsAre("BX_MassEditProgress(pointer, 15, 0, 0, -1)"));
}

TEST_F(Progress, TheHostIsToldAtMostEvery33Milliseconds) {
  Start(100);
  UpdateAfter(700, 10);
  host_.Forget();
  report_.nextCheckMs = 733;
  EXPECT_EQ(UpdateAfter(720, 20), 1);
  EXPECT_THAT(host_.Calls(), IsEmpty());
  EXPECT_EQ(report_.unitsReported, 10);
}

TEST_F(Progress, AnUpdateWithoutAnythingNewDoesNothing) {
  Start(100);
  UpdateAfter(700, 10);
  host_.Forget();
  const tProgressReport before = report_;
  EXPECT_EQ(UpdateAfter(900, 10), 1);
  EXPECT_EQ(UpdateAfter(900, 9), 1);
  EXPECT_EQ(report_.nextCheckMs, before.nextCheckMs);
  EXPECT_THAT(host_.Calls(), IsEmpty());
}

// 100 units in 700 ms are not 666 ms, but 110 of 100 in that time count as 100.
TEST_F(Progress, AJobThatShouldBeOverByNowIsNotShown) {
  Start(100);
  report_.nextCheckMs = 600;
  EXPECT_EQ(UpdateAfter(620, 99), 1);
  EXPECT_THAT(host_.Calls(), IsEmpty());
  EXPECT_EQ(report_.massEdit, nullptr);
  EXPECT_EQ(report_.unitsReported, 0);
}

TEST_F(Progress, AShortJobIsLookedAtAgainWhenItShouldBeOver) {
  Start(100);
  report_.nextCheckMs = 0;
  EXPECT_EQ(UpdateAfter(100, 20), 1);
  EXPECT_GE(report_.nextCheckMs, 500);
  EXPECT_LE(report_.nextCheckMs, 666);
  EXPECT_THAT(host_.Calls(), IsEmpty());
}

TEST_F(Progress, AJobThatEndsWithinTheNextUpdateKeepsTheUsualPace) {
  Start(100);
  report_.nextCheckMs = 0;
  EXPECT_EQ(UpdateAfter(600, 99), 1);
  EXPECT_GE(report_.nextCheckMs, 633);
  EXPECT_LE(report_.nextCheckMs, 650);
}

TEST_F(Progress, AJobOfNoUnitsOpensADisplayOfNoUnits) {
  Start(0);
  EXPECT_EQ(UpdateAfter(800, 0), 1);
  EXPECT_THAT(host_.Calls(), IsEmpty());
  EXPECT_EQ(UpdateAfter(800, 1), 1);
  EXPECT_THAT(host_.Texts(), ElementsAre("BX_StartMassEdit(0, 0)", "BX_MassEditProgress(pointer, 0, 0, 0, -1)"));
}

TEST_F(Progress, ADisplayThatDoesNotOpenIsTriedAgain) {
  host_.Answer("BX_StartMassEdit", 0);
  Start(100);
  EXPECT_EQ(UpdateAfter(700, 10), 1);
  EXPECT_EQ(UpdateAfter(800, 20), 1);
  EXPECT_EQ(host_.Count("BX_StartMassEdit"), 2);
  EXPECT_EQ(host_.Count("BX_MassEditProgress"), 0);
  EXPECT_EQ(report_.unitsReported, 0);
  BXUtilPREnd(&report_, 0);
  EXPECT_EQ(host_.Count("BX_EndMassEdit"), 0);
}

TEST_F(Progress, CountsAreUnsigned) {
  Start(60000);
  EXPECT_EQ(UpdateAfter(700, 40000), 1);
  EXPECT_THAT(host_.Texts(),
              ElementsAre("BX_StartMassEdit(0, 60000)", "BX_MassEditProgress(pointer, -25536, 0, 0, -1)"));
  EXPECT_EQ(report_.unitsReported, 40000);
}

TEST_F(Progress, NoMoreThanTheJobIsReported) {
  Start(10);
  EXPECT_EQ(UpdateAfter(900, 50), 1);
  EXPECT_THAT(host_.Texts(), ElementsAre("BX_StartMassEdit(0, 10)", "BX_MassEditProgress(pointer, 10, 0, 0, -1)"));
}

TEST_F(Progress, AnEndFillsTheDisplay) {
  Start(100);
  UpdateAfter(700, 10);
  host_.Forget();
  BXUtilPREnd(&report_, 0);
  EXPECT_THAT(host_.Texts(), ElementsAre("BX_MassEditProgress(pointer, 90, 0, 0, -1)", "BX_EndMassEdit(pointer, 0)"));
}

TEST_F(Progress, AnEndOfAFullDisplayOnlyEnds) {
  Start(10);
  UpdateAfter(900, 10);
  host_.Forget();
  BXUtilPREnd(&report_, 0);
  EXPECT_THAT(host_.Texts(), ElementsAre("BX_EndMassEdit(pointer, 0)"));
}

TEST_F(Progress, ACancelledEndDoesNotFillTheDisplay) {
  Start(100);
  UpdateAfter(700, 10);
  host_.Forget();
  BXUtilPREnd(&report_, 1);
  EXPECT_THAT(host_.Texts(), ElementsAre("BX_EndMassEdit(pointer, 1)"));
}

TEST_F(Progress, CommandPeriodCancelsAtOnce) {
  Start(100);
  BrvPlatformSetModifierFlags(0x100000);
  BrvPlatformSetKeyDown(kPeriodKey, true);
  EXPECT_EQ(BXUtilPRUpdate(&report_, 1), 0);
  EXPECT_THAT(host_.Calls(), IsEmpty());
}

TEST_F(Progress, NeitherCommandNorPeriodAloneCancels) {
  Start(100);
  BrvPlatformSetModifierFlags(0x100000);
  EXPECT_EQ(BXUtilPRUpdate(&report_, 1), 1);
  BrvPlatformSetModifierFlags(0x020000);
  BrvPlatformSetKeyDown(kPeriodKey, true);
  EXPECT_EQ(BXUtilPRUpdate(&report_, 1), 1);
}

TEST_F(Progress, AJobsSizeIsTheProductOfWhatItCounts) {
  EREGION region = {};
  region.startStaff = 3;
  region.endStaff = 4;
  region.startMeasure = 10;
  region.endMeasure = 14;
  host_.Answer("BX_GetMaxLayers", 4);
  EXPECT_EQ(BXUtilPRCalcJobSize(&region, 0), 1);
  EXPECT_EQ(BXUtilPRCalcJobSize(&region, kPRMeasures), 5);
  EXPECT_EQ(BXUtilPRCalcJobSize(&region, kPRStaves), 2);
  EXPECT_EQ(BXUtilPRCalcJobSize(&region, kPRLayers), 4);
  EXPECT_EQ(BXUtilPRCalcJobSize(&region, kPRMeasures | kPRStaves | kPRLayers), 40);
  EXPECT_EQ(BXUtilPRCalcJobSize(&region, 0x70000 | kPRStaves), 2);
}

TEST_F(Progress, AJobsSizeWrapsAtSixteenBits) {
  EREGION region = {};
  region.endMeasure = 19999;
  region.endStaff = 3;
  EXPECT_EQ(BXUtilPRCalcJobSize(&region, kPRMeasures | kPRStaves), static_cast<std::int16_t>(80000 & 0xFFFF));
  region.startMeasure = -32768;
  region.endMeasure = 32767;
  EXPECT_EQ(BXUtilPRCalcJobSize(&region, kPRMeasures), 0);
}

}  // namespace
