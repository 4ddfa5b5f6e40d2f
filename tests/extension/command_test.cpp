// The command of the menu items, on a document of frames.
#include "commandfixture.h"

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

TEST_F(Command, SetsTheBitOfEveryEntryOfAMeasure) {
  Put({1, 1, 0}, {0, 10, kEverything}, 0x8001);
  Select(1, 1, 1, 1);
  EXPECT_EQ(Run(kHide), 1);
  EXPECT_THAT(Flags({1, 1, 0}), ElementsAre(0x8041, 0x8041, 0x8041));
}

TEST_F(Command, ClearsTheBitAndNoOther) {
  Put({1, 1, 0}, {0, 10}, 0xFFFF);
  Select(1, 1, 1, 1);
  EXPECT_EQ(Run(kShow), 1);
  EXPECT_THAT(Flags({1, 1, 0}), ElementsAre(0xFFBF, 0xFFBF));
}

TEST_F(Command, RunTwiceChangesAndSavesNothingTheSecondTime) {
  Put({1, 1, 0}, {0, 10});
  Select(1, 1, 1, 1);
  EXPECT_EQ(Run(kHide), 1);
  EXPECT_EQ(host_.Count("BX_SaveTGF"), 1);
  EXPECT_EQ(Run(kHide), 0);
  EXPECT_EQ(host_.Count("BX_SaveTGF"), 1);
  EXPECT_EQ(host_.Count("BX_FreeTGF"), 2);
}

TEST_F(Command, CountsBothPositionsAsInside) {
  Put({1, 1, 0}, {99, 100, 101, 199, 200, 201});
  Select(1, 1, 1, 1, 100, 200);
  Run(kHide);
  EXPECT_THAT(Flags({1, 1, 0}), ElementsAre(0, 0x40, 0x40, 0x40, 0x40, 0));
}

TEST_F(Command, StopsAtTheFirstEntryAfterTheRange) {
  Put({1, 1, 0}, {0, 300, 100});
  Select(1, 1, 1, 1, 0, 200);
  Run(kHide);
  EXPECT_THAT(Flags({1, 1, 0}), ElementsAre(0x40, 0, 0));
}

TEST_F(Command, CutsOnlyTheFirstAndLastMeasureAndAllStavesAlike) {
  for (const int staff : {1, 2}) {
    for (const int measure : {1, 2, 3}) Put({staff, measure, 0}, {-5, 0, 100, 200});
  }
  Select(1, 2, 1, 3, 100, 100);
  Run(kHide);
  for (const int staff : {1, 2}) {
    EXPECT_THAT(Flags({staff, 1, 0}), ElementsAre(0, 0, 0x40, 0x40));
    EXPECT_THAT(Flags({staff, 2, 0}), ElementsAre(0, 0x40, 0x40, 0x40));
    EXPECT_THAT(Flags({staff, 3, 0}), ElementsAre(0, 0x40, 0x40, 0));
  }
}

TEST_F(Command, TakesANegativeStartForWhatItIs) {
  Put({1, 1, 0}, {-5, 0});
  Select(1, 1, 1, 1, -5);
  Run(kHide);
  EXPECT_THAT(Flags({1, 1, 0}), ElementsAre(0x40, 0x40));
}

TEST_F(Command, FreesAFrameWithoutEntriesAndDoesNotSaveIt) {
  EXENTRY entry = Note(0, 0);
  EXTGF2005a frame = {};
  frame.entries = &entry;
  host_.Answer("BX_LoadTGF", reinterpret_cast<std::uint64_t>(&frame));
  Select(1, 1, 1, 1);
  for (const int count : {0, -1}) {
    frame.entryCount = static_cast<std::int16_t>(count);
    host_.Forget();
    EXPECT_EQ(Run(kHide), 0);
    EXPECT_EQ(host_.Count("BX_SaveTGF"), 0);
    EXPECT_EQ(host_.Count("BX_FreeTGF"), 1);
    EXPECT_EQ(entry.flags, 0);
  }
}

TEST_F(Command, MakesTheseCallsInThisOrder) {
  constexpr int kHiddenLayer = 1;
  HideLayer(kHiddenLayer);
  std::vector<std::string> expected = {"BX_GetMaxLayers()", "BX_GetMaxLayers()"};
  for (const int staff : {3, 4}) {
    for (const int layer : {0, 1, 2, 3}) {
      expected.push_back("BX_GetShowLayer(" + std::to_string(layer) + ")");
      if (layer == kHiddenLayer) continue;
      for (const int measure : {7, 8, 9}) {
        expected.push_back("BX_LoadTGF(43981, " + std::to_string(staff) + ", " + std::to_string(measure) + ", " +
                           std::to_string(layer) + ", 1)");
        const bool missing = (staff == 3 && measure == 8 && layer == 0) || (staff == 4 && measure == 9 && layer == 3);
        if (missing) continue;
        // Layer 2 has its bits set already.
        Put({staff, measure, layer}, {0, 50}, layer == 2 ? 0x40 : 0);
        if (layer != 2) expected.push_back("BX_SaveTGF(pointer)");
        expected.push_back("BX_FreeTGF(pointer)");
      }
    }
  }
  Select(3, 4, 7, 9);
  EXPECT_EQ(Run(kHide), 1);
  EXPECT_THAT(host_.Texts(), ElementsAreArray(expected));
  for (const HostCall& call : host_.Calls()) EXPECT_EQ(call.arguments.back(), 0x19500000u);
}

TEST_F(Command, CancelledAtAnyFrameKeepsWhatWasSavedAndLoadsNoMore) {
  constexpr int kFrames = 2 * 3 * 2;
  for (int cancelAt = 1; cancelAt <= kFrames; ++cancelAt) {
    for (const int staff : {1, 2}) {
      for (const int measure : {1, 2, 3}) {
        for (const int layer : {0, 1}) Put({staff, measure, layer}, {0});
      }
    }
    Select(1, 2, 1, 3);
    host_.Forget();
    frees_ = 0;
    afterFrame_.clear();
    CancelAfterFrame(cancelAt);
    EXPECT_EQ(Run(kHide), 1);
    HoldCommandPeriod(false);
    EXPECT_EQ(host_.Count("BX_LoadTGF"), cancelAt);
    EXPECT_EQ(host_.Count("BX_SaveTGF"), cancelAt);
    EXPECT_EQ(host_.Count("BX_FreeTGF"), cancelAt);
    int changed = 0;
    for (const int staff : {1, 2}) {
      for (const int measure : {1, 2, 3}) {
        for (const int layer : {0, 1}) changed += Flags({staff, measure, layer})[0] == 0x40;
      }
    }
    EXPECT_EQ(changed, cancelAt);
  }
}

TEST_F(Command, CancelledBeforeTheFirstChangeReturnsZero) {
  Put({1, 1, 0}, {0}, 0x40);
  Put({1, 2, 0}, {0});
  Select(1, 1, 1, 2);
  CancelAfterFrame(1);
  EXPECT_EQ(Run(kHide), 0);
  EXPECT_EQ(Flags({1, 2, 0})[0], 0);
  EXPECT_EQ(host_.Calls().back().name, "BX_AlertMessage");
}

TEST_F(Command, LoadsNothingInAnInvertedRegion) {
  Put({1, 1, 0}, {0});
  Select(2, 1, 1, 1);
  EXPECT_EQ(Run(kHide), 0);
  Select(1, 1, 2, 1);
  EXPECT_EQ(Run(kHide), 0);
  EXPECT_EQ(host_.Count("BX_LoadTGF"), 0);
  EXPECT_EQ(host_.Count("BX_GetShowLayer"), 0);
}

TEST_F(Command, HasNothingToDoInAHostWithoutLayers) {
  for (const int layers : {0, -1}) {
    host_.Answer("BX_GetMaxLayers", static_cast<std::uint64_t>(layers));
    Select(1, 1, 1, 1);
    EXPECT_EQ(Run(kHide), 0);
  }
  EXPECT_EQ(host_.Count("BX_LoadTGF"), 0);
}

TEST_F(Command, EndsAtTheLastStaffAndMeasureThatThereCanBe) {
  Select(32766, 32767, 32766, 32767);
  EXPECT_EQ(Run(kHide), 0);
  EXPECT_EQ(host_.Count("BX_LoadTGF"), 4);
}

}  // namespace
