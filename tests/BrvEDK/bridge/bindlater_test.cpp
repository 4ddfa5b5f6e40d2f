// A function that is called before the host is bound never finds its host function. Each test needs a process that is
// not bound yet.
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

TEST(BindingLater, LeavesEndAndCancelAliveThatHadNoEditToLeave) {
  ASSERT_EQ(GetBrevixBundleRef(), nullptr);
  EXPECT_EQ(BX_EndBrevixEdit(kBrvVersion), 1);
  BX_CancelBrevixEdit(kBrvVersion);

  RecordingHost host;
  host.Answer("BX_EndBrevixEdit", 9);
  BrevixEditDepth = 2;
  EXPECT_EQ(BX_EndBrevixEdit(kBrvVersion), 9);
  BX_CancelBrevixEdit(kBrvVersion);
  EXPECT_EQ(host.Count("BX_CancelBrevixEdit"), 1);
}

TEST(BindingLater, LooksAFunctionUpOnlyWhenItIsFirstCalled) {
  RecordingHost host;
  host.Answer("BX_CountParts", 5);
  EXPECT_EQ(BX_CountParts(kBrvVersion), 5);
}

}  // namespace
