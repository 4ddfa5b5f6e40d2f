// A system that knows neither the host's bundle nor the program's. This program's own CFBundleGetMainBundle comes
// before the system's.
#include <gtest/gtest.h>

#include "brevixpdk.h"
#include "hostbundle.h"
#include "tests/support/imageundertest.h"

extern "C" __attribute__((visibility("default"))) CFBundleRef CFBundleGetMainBundle() { return nullptr; }

namespace {

TEST(NoHostBundle, IsReportedWhenTheExtensionIsBound) {
  char program[] = "host";
  char* argv[] = {program, nullptr};
  EXPECT_EQ(BundleMain(1, argv), 0);
  EXPECT_EQ(InitializeGlobals(), -1);
  EXPECT_EQ(GetBrevixBundleRef(), nullptr);
}

TEST(NoHostBundle, LeavesEachCallItsDefault) { EXPECT_EQ(BX_GetMaxLayers(kBrvVersion), 4); }

}  // namespace
