// A system that cannot tell which image an object belongs to. This program's own dladdr comes before the C library's.
#include <dlfcn.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "portable.h"
#include "tests/support/assertions.h"

extern "C" __attribute__((visibility("default"))) int dladdr(const void*, Dl_info*) noexcept { return 0; }

namespace {

TEST(OwnBundleDeathTest, AnImageThatCannotBeNamedFailsTheAssertion) {
  EXPECT_DEATH(CopyPlugInStringResource(1),
               testing::StrEq(AssertionMessage("CopyPlugInStringResource", "LIB/portable:176", "bundleRef != NULL")));
}

}  // namespace
