// The size of a job, and the report on a job whose size does not fit in sixteen bits.
#include "progressfixture.h"

namespace {

using testing::ElementsAre;

constexpr int kWhole = kPRMeasures | kPRStaves | kPRLayers;

EREGION Region(int startStaff, int endStaff, int startMeasure, int endMeasure) {
  EREGION region = {};
  region.startStaff = static_cast<std::int16_t>(startStaff);
  region.endStaff = static_cast<std::int16_t>(endStaff);
  region.startMeasure = static_cast<std::int16_t>(startMeasure);
  region.endMeasure = static_cast<std::int16_t>(endMeasure);
  return region;
}

using JobSize = Progress;

TEST_F(JobSize, IsTheProductOfWhatItCounts) {
  EREGION region = Region(3, 4, 10, 14);
  host_.Answer("BX_GetMaxLayers", 4);
  EXPECT_EQ(BXUtilPRCalcJobSize(&region, 0), 1);
  EXPECT_EQ(BXUtilPRCalcJobSize(&region, kPRMeasures), 5);
  EXPECT_EQ(BXUtilPRCalcJobSize(&region, kPRStaves), 2);
  EXPECT_EQ(BXUtilPRCalcJobSize(&region, kPRLayers), 4);
  EXPECT_EQ(BXUtilPRCalcJobSize(&region, kWhole), 40);
  EXPECT_EQ(BXUtilPRCalcJobSize(&region, 0x70000 | kPRStaves), 2);
}

TEST_F(JobSize, AsksForTheLayersOnlyWhenItCountsThem) {
  EREGION region = Region(3, 4, 10, 14);
  BXUtilPRCalcJobSize(&region, kPRMeasures | kPRStaves);
  EXPECT_EQ(host_.Count("BX_GetMaxLayers"), 0);
  BXUtilPRCalcJobSize(&region, kPRLayers);
  EXPECT_EQ(host_.Count("BX_GetMaxLayers"), 1);
}

TEST_F(JobSize, OfARegionThatIsInvertedIsNegative) {
  host_.Answer("BX_GetMaxLayers", 4);
  EREGION region = Region(3, 4, 5, 1);
  EXPECT_EQ(BXUtilPRCalcJobSize(&region, kPRMeasures), -3);
  EXPECT_EQ(BXUtilPRCalcJobSize(&region, kWhole), -24);
  region = Region(4, 1, 5, 1);
  EXPECT_EQ(BXUtilPRCalcJobSize(&region, kPRStaves), -2);
  EXPECT_EQ(BXUtilPRCalcJobSize(&region, kWhole), 24);
}

TEST_F(JobSize, TakesTheHostsLayersForWhatTheyAre) {
  EREGION region = Region(1, 1, 1, 3);
  host_.Answer("BX_GetMaxLayers", 0xFFFF);
  EXPECT_EQ(BXUtilPRCalcJobSize(&region, kWhole), -3);
  host_.Answer("BX_GetMaxLayers", 0);
  EXPECT_EQ(BXUtilPRCalcJobSize(&region, kWhole), 0);
}

TEST_F(JobSize, WrapsAtSixteenBits) {
  EREGION region = Region(0, 3, 0, 19999);
  EXPECT_EQ(BXUtilPRCalcJobSize(&region, kPRMeasures | kPRStaves), 80000 - 65536);
  region = Region(1, 1, 1, 32767);
  host_.Answer("BX_GetMaxLayers", 2);
  EXPECT_EQ(BXUtilPRCalcJobSize(&region, kWhole), -2);
  region = Region(1, 1, -32768, 32767);
  EXPECT_EQ(BXUtilPRCalcJobSize(&region, kPRMeasures), 0);
}

TEST_F(JobSize, IsTheLowSixteenBitsOfTheWholeProduct) {
  constexpr int kEdges[] = {-32768, -32767, -1, 0, 1, 2, 32766, 32767};
  for (const int layers : kEdges) {
    host_.Answer("BX_GetMaxLayers", static_cast<std::uint16_t>(layers));
    for (const int startMeasure : kEdges) {
      for (const int endMeasure : kEdges) {
        for (const int endStaff : kEdges) {
          EREGION region = Region(-7, endStaff, startMeasure, endMeasure);
          const std::int64_t product = std::int64_t{layers} * (endMeasure + 1 - startMeasure) * (endStaff + 1 + 7);
          EXPECT_EQ(BXUtilPRCalcJobSize(&region, kWhole), static_cast<std::int16_t>(product & 0xFFFF))
              << layers << " layers, measures " << startMeasure << " to " << endMeasure << ", last staff " << endStaff;
        }
      }
    }
  }
}

TEST_F(JobSize, ThatIsNegativeCountsAsUnsignedInTheReportAndIsNotFilledUp) {
  EREGION region = Region(3, 4, 5, 1);
  host_.Answer("BX_GetMaxLayers", 4);
  Start(BXUtilPRCalcJobSize(&region, kWhole));
  EXPECT_EQ(report_.jobSize, 65536 - 24);
  host_.Forget();
  EXPECT_EQ(UpdateAfter(700, 10), 1);
  EXPECT_EQ(UpdateAfter(800, 30), 1);
  BXUtilPREnd(&report_, 0);
  EXPECT_THAT(host_.Texts(), ElementsAre("BX_StartMassEdit(0, 65512)", "BX_MassEditProgress(pointer, 10, 0, 0, -1)",
                                         "BX_MassEditProgress(pointer, 20, 0, 0, -1)", "BX_EndMassEdit(pointer, 0)"));
}

TEST_F(JobSize, ThatIsNegativeIsFilledUpOnceTheRestFitsInSixteenBits) {
  Start(-24);
  UpdateAfter(700, 65536 - 24 - 32768);
  host_.Forget();
  BXUtilPREnd(&report_, 0);
  EXPECT_THAT(host_.Texts(), ElementsAre("BX_EndMassEdit(pointer, 0)"));

  Start(-24);
  UpdateAfter(700, 65536 - 24 - 32767);
  host_.Forget();
  BXUtilPREnd(&report_, 0);
  EXPECT_THAT(host_.Texts(),
              ElementsAre("BX_MassEditProgress(pointer, 32767, 0, 0, -1)", "BX_EndMassEdit(pointer, 0)"));
}

TEST_F(JobSize, ThatWrappedIsFullBeforeTheJobIsOver) {
  EREGION region = Region(0, 3, 0, 19999);
  Start(BXUtilPRCalcJobSize(&region, kPRMeasures | kPRStaves));
  UpdateAfter(700, 14000);
  UpdateAfter(800, 20000);
  UpdateAfter(900, 30000);
  BXUtilPREnd(&report_, 0);
  EXPECT_THAT(host_.Texts(), ElementsAre("BX_StartMassEdit(0, 14464)", "BX_MassEditProgress(pointer, 14000, 0, 0, -1)",
                                         "BX_MassEditProgress(pointer, 464, 0, 0, -1)",
                                         "BX_MassEditProgress(pointer, 0, 0, 0, -1)", "BX_EndMassEdit(pointer, 0)"));
}

}  // namespace
