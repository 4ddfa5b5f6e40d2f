// Binding to the host's bundle. A process has one host, so the tests run in the order of this file.
#include <gtest/gtest.h>

#include "hostbundle.h"
#include "recordinghost.h"
#include "tests/support/imageundertest.h"

namespace {

TEST(HostBundle, IsNotBoundByAMainWithoutArguments) {
  char program[] = "host";
  char* argv[] = {program, nullptr};
  EXPECT_EQ(BundleMain(0, argv), 0);
  EXPECT_EQ(BundleMain(1, nullptr), 0);
  EXPECT_EQ(GetBrevixBundleRef(), nullptr);
}

TEST(HostBundle, IsTheOneWithTheHostsIdentifierAndStaysIt) {
  const CFBundleRef bundle = OpenHostBundle("RecordingHost");
  char program[] = "host";
  char* argv[] = {program, nullptr};
  EXPECT_EQ(BundleMain(1, argv), 1);
  EXPECT_EQ(GetBrevixBundleRef(), bundle);

  EXPECT_NE(OpenHostBundle("EmptyHost"), nullptr);
  EXPECT_EQ(InitializeGlobals(), 0);
  EXPECT_EQ(GetBrevixBundleRef(), bundle);
}

}  // namespace
