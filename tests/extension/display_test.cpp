// The command with the host's progress display open. Time passes only where a test lets it.
#include "commandfixture.h"
#include "steadyclock.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Display : public Command {
 protected:
  void SetUp() override {
    Command::SetUp();
    host_.Answer("BX_StartMassEdit", reinterpret_cast<std::uint64_t>(&handle_));
  }

  void LetTimePassAfterFrame(int n, std::int64_t ms) {
    AfterFrame(n, [ms] { LetTimePass(ms); });
  }

  // A frame without entries wherever the command looks.
  void LoadTheSameEmptyFrameEverywhere() { host_.Answer("BX_LoadTGF", reinterpret_cast<std::uint64_t>(&emptyFrame_)); }

  // The host's calls about the job, each after the number of frames that had been freed by then.
  std::vector<std::string> Reports() const {
    std::vector<std::string> reports;
    int frames = 0;
    for (const HostCall& call : host_.Calls()) {
      if (call.name == "BX_FreeTGF") ++frames;
      if (call.name.find("MassEdit") != std::string::npos) {
        reports.push_back(std::to_string(frames) + ": " + call.Text());
      }
    }
    return reports;
  }

  int handle_ = 0;
  EXTGF2005a emptyFrame_ = {};
};

TEST_F(Display, IsFilledUpAtTheEnd) {
  for (const int measure : {1, 2, 3}) Put({1, measure, 0}, {0});
  Select(1, 1, 1, 3);
  LetTimePassAfterFrame(1, 700);
  EXPECT_EQ(Run(kHide), 1);
  EXPECT_THAT(Reports(), ElementsAre("1: BX_StartMassEdit(0, 3)", "1: BX_MassEditProgress(pointer, 1, 0, 0, -1)",
                                     "3: BX_MassEditProgress(pointer, 2, 0, 0, -1)", "3: BX_EndMassEdit(pointer, 0)"));
}

TEST_F(Display, EndsAsCancelledAndIsNotFilledUpWhenTheLastFrameIsCancelled) {
  for (const int measure : {1, 2, 3}) Put({1, measure, 0}, {0});
  Select(1, 1, 1, 3);
  LetTimePassAfterFrame(1, 700);
  CancelAfterFrame(3);
  EXPECT_EQ(Run(kHide), 1);
  EXPECT_THAT(Reports(), ElementsAre("1: BX_StartMassEdit(0, 3)", "1: BX_MassEditProgress(pointer, 1, 0, 0, -1)",
                                     "3: BX_EndMassEdit(pointer, 1)"));
  EXPECT_EQ(host_.Count("BX_SaveTGF"), 3);
  EXPECT_EQ(host_.Calls().back().name, "BX_EndMassEdit");
}

TEST_F(Display, CountsHiddenLayersAndFramesThatDoNotLoad) {
  host_.Answer("BX_GetMaxLayers", 4);
  HideLayer(2);
  for (const int measure : {1, 3}) Put({1, measure, 0}, {0});
  Select(1, 1, 1, 3);
  LetTimePassAfterFrame(2, 700);
  Run(kHide);
  EXPECT_THAT(Reports(), ElementsAre("2: BX_StartMassEdit(0, 12)", "2: BX_MassEditProgress(pointer, 2, 0, 0, -1)",
                                     "2: BX_MassEditProgress(pointer, 10, 0, 0, -1)", "2: BX_EndMassEdit(pointer, 0)"));
}

TEST_F(Display, DoesNotStopTheCommandByWhatTheHostAnswers) {
  for (const std::uint64_t answer : {0x0u, 0x1u, 0xFFFFu, 0x10000u}) {
    host_.Answer("BX_MassEditProgress", answer);
    host_.Answer("BX_EndMassEdit", answer);
    host_.Answer("BX_SaveTGF", answer);
    host_.Forget();
    frees_ = 0;
    for (const int measure : {1, 2, 3}) Put({1, measure, 0}, {0});
    Select(1, 1, 1, 3);
    LetTimePassAfterFrame(1, 700);
    LetTimePassAfterFrame(2, 100);
    EXPECT_EQ(Run(kHide), 1) << answer;
    EXPECT_THAT(Reports(), ElementsAre("1: BX_StartMassEdit(0, 3)", "1: BX_MassEditProgress(pointer, 1, 0, 0, -1)",
                                       "2: BX_MassEditProgress(pointer, 1, 0, 0, -1)",
                                       "3: BX_MassEditProgress(pointer, 1, 0, 0, -1)", "3: BX_EndMassEdit(pointer, 0)"))
        << answer;
    EXPECT_EQ(host_.Count("BX_SaveTGF"), 3) << answer;
  }
}

// 70,000 frames, a job of 4464 units. Sixteen bits count them: the frame of number 65,536 counts as none.
TEST_F(Display, CountsFramesInSixteenBits) {
  LoadTheSameEmptyFrameEverywhere();
  Select(1, 7, 1, 10000);
  LetTimePassAfterFrame(65536, 700);
  EXPECT_EQ(Run(kHide), 0);
  EXPECT_EQ(frees_, 70000);
  EXPECT_THAT(Reports(),
              ElementsAre("65537: BX_StartMassEdit(0, 4464)", "65537: BX_MassEditProgress(pointer, 1, 0, 0, -1)",
                          "70000: BX_MassEditProgress(pointer, 4463, 0, 0, -1)", "70000: BX_EndMassEdit(pointer, 0)"));
}

TEST_F(Display, StandsStillAfter65536FramesUntilTheCountPassesWhatWasReported) {
  LoadTheSameEmptyFrameEverywhere();
  Select(1, 7, 1, 10000);
  LetTimePassAfterFrame(100, 700);
  LetTimePassAfterFrame(65536, 700);
  Run(kHide);
  EXPECT_THAT(Reports(),
              ElementsAre("100: BX_StartMassEdit(0, 4464)", "100: BX_MassEditProgress(pointer, 100, 0, 0, -1)",
                          "65637: BX_MassEditProgress(pointer, 1, 0, 0, -1)",
                          "70000: BX_MassEditProgress(pointer, 4363, 0, 0, -1)", "70000: BX_EndMassEdit(pointer, 0)"));
}

TEST_F(Display, OfExactly65536FramesIsOneOfNoUnits) {
  LoadTheSameEmptyFrameEverywhere();
  Select(1, 8, 1, 8192);
  LetTimePassAfterFrame(65535, 700);
  Run(kHide);
  EXPECT_EQ(frees_, 65536);
  EXPECT_THAT(Reports(),
              ElementsAre("65535: BX_StartMassEdit(0, 0)", "65535: BX_MassEditProgress(pointer, 0, 0, 0, -1)",
                          "65536: BX_EndMassEdit(pointer, 0)"));
}

TEST_F(Display, OfAnInvertedRegionIsNeverOpened) {
  Select(1, 2, 5, 1);
  Run(kHide);
  Select(2, 1, 1, 5);
  Run(kHide);
  EXPECT_THAT(Reports(), IsEmpty());
}

}  // namespace
