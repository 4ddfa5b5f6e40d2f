// A function that is called before the host is bound stays without its host function for good.
#include <gtest/gtest.h>

#include "brevixpdk.h"
#include "hostbundle.h"
#include "recordinghost.h"

namespace {

TEST(BindingLater, LeavesAFunctionThatWasCalledEarlierInert) {
  ASSERT_EQ(GetBrevixBundleRef(), nullptr);
  EXPECT_EQ(BX_GetMaxLayers(kBrvVersion), 4);

  RecordingHost host;
  host.Answer("BX_GetMaxLayers", 7);
  host.Answer("BX_GetWindowCount", 3);
  EXPECT_EQ(BX_GetMaxLayers(kBrvVersion), 4);
  EXPECT_EQ(host.Count("BX_GetMaxLayers"), 0);
  EXPECT_EQ(BX_GetWindowCount(kBrvVersion), 3);
}

TEST(BindingLater, LooksAFunctionUpOnlyWhenItIsFirstCalled) {
  RecordingHost host;
  host.Answer("BX_CountParts", 5);
  EXPECT_EQ(BX_CountParts(kBrvVersion), 5);
}

}  // namespace
