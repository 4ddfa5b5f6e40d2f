// Progress reports.
#include "progressfixture.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

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
  EXPECT_EQ(report_.nextCheckMs, 733);
}

TEST_F(Progress, LaterReportsAreIncrements) {
  Start(100);
  UpdateAfter(700, 10);
  host_.Forget();
  EXPECT_EQ(UpdateAfter(800, 25), 1);
  EXPECT_THAT(host_.Texts(), ElementsAre("BX_MassEditProgress(pointer, 15, 0, 0, -1)"));
}

TEST_F(Progress, TheHostGetsAReportAtMostEvery33Milliseconds) {
  Start(100);
  UpdateAfter(700, 10);
  host_.Forget();
  EXPECT_EQ(UpdateAfter(732, 20), 1);
  EXPECT_THAT(host_.Calls(), IsEmpty());
  EXPECT_EQ(report_.unitsReported, 10);
  EXPECT_EQ(UpdateAfter(733, 21), 1);
  EXPECT_THAT(host_.Texts(), ElementsAre("BX_MassEditProgress(pointer, 11, 0, 0, -1)"));
  EXPECT_EQ(report_.nextCheckMs, 766);
}

TEST_F(Progress, TheFirstLookAtAJobIsAt667Milliseconds) {
  Start(100);
  EXPECT_EQ(UpdateAfter(666, 10), 1);
  EXPECT_EQ(report_.nextCheckMs, 667);
  EXPECT_THAT(host_.Calls(), IsEmpty());
  EXPECT_EQ(UpdateAfter(667, 10), 1);
  EXPECT_THAT(host_.Texts(), ElementsAre("BX_StartMassEdit(0, 100)", "BX_MassEditProgress(pointer, 10, 0, 0, -1)"));
  EXPECT_EQ(report_.nextCheckMs, 700);
}

TEST_F(Progress, AJobOf667MillisecondsIsShownAndOneOf666IsNot) {
  Start(100);
  report_.nextCheckMs = 0;
  EXPECT_EQ(UpdateAfter(333, 50), 1);
  EXPECT_THAT(host_.Calls(), IsEmpty());
  EXPECT_EQ(report_.nextCheckMs, 666);
  EXPECT_EQ(UpdateAfter(667, 100), 1);
  EXPECT_THAT(host_.Texts(), ElementsAre("BX_StartMassEdit(0, 100)", "BX_MassEditProgress(pointer, 100, 0, 0, -1)"));
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
  EXPECT_EQ(report_.nextCheckMs, 500);
  EXPECT_THAT(host_.Calls(), IsEmpty());
}

TEST_F(Progress, AJobThatEndsWithinTheNextUpdateKeepsTheUsualPace) {
  Start(100);
  report_.nextCheckMs = 0;
  EXPECT_EQ(UpdateAfter(600, 99), 1);
  EXPECT_EQ(report_.nextCheckMs, 633);
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

TEST_F(Progress, AnEndOfAReportThatWasNotShownDoesNothing) {
  Start(100);
  BXUtilPREnd(&report_, 0);
  BXUtilPREnd(&report_, 1);
  EXPECT_THAT(host_.Calls(), IsEmpty());
}

// An end leaves the report as it is, so that callers end a report once.
TEST_F(Progress, ASecondEndReachesTheHostAgain) {
  Start(100);
  UpdateAfter(700, 10);
  host_.Forget();
  BXUtilPREnd(&report_, 0);
  EXPECT_EQ(report_.massEdit, &handle_);
  EXPECT_EQ(report_.unitsReported, 10);
  BXUtilPREnd(&report_, 0);
  BXUtilPREnd(&report_, 1);
  EXPECT_THAT(host_.Texts(), ElementsAre("BX_MassEditProgress(pointer, 90, 0, 0, -1)", "BX_EndMassEdit(pointer, 0)",
                                         "BX_MassEditProgress(pointer, 90, 0, 0, -1)", "BX_EndMassEdit(pointer, 0)",
                                         "BX_EndMassEdit(pointer, 1)"));
}

TEST_F(Progress, WhatTheHostAnswersToAReportIsNotRead) {
  for (const std::uint64_t answer : {0x0u, 0x1u, 0x8000u, 0xFFFFu, 0x10000u, 0x5A5A1234u, 0xFFFFFFFFu}) {
    host_.Forget();
    host_.Answer("BX_MassEditProgress", answer);
    host_.Answer("BX_EndMassEdit", answer);
    Start(100);
    EXPECT_EQ(UpdateAfter(700, 10), 1) << answer;
    EXPECT_EQ(UpdateAfter(800, 25), 1) << answer;
    EXPECT_EQ(report_.unitsReported, 25) << answer;
    EXPECT_EQ(report_.nextCheckMs, 833) << answer;
    BXUtilPREnd(&report_, 0);
    EXPECT_EQ(report_.massEdit, &handle_) << answer;
    EXPECT_THAT(host_.Texts(), ElementsAre("BX_StartMassEdit(0, 100)", "BX_MassEditProgress(pointer, 10, 0, 0, -1)",
                                           "BX_MassEditProgress(pointer, 15, 0, 0, -1)",
                                           "BX_MassEditProgress(pointer, 75, 0, 0, -1)", "BX_EndMassEdit(pointer, 0)"))
        << answer;
  }
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

}  // namespace
