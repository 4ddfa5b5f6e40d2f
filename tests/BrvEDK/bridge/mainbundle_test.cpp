// Without a bundle of the host's identifier the main program is the host.
#include <gtest/gtest.h>

#include "brevixpdk.h"
#include "hostbundle.h"

namespace {

TEST(HostBundle, IsTheMainBundleWhereNoneHasTheHostsIdentifier) {
  EXPECT_EQ(InitializeGlobals(), 0);
  EXPECT_EQ(GetBrevixBundleRef(), CFBundleGetMainBundle());
}

TEST(HostBundle, OfAProgramWithoutHostFunctionsDoesNotAnswerWithTheKitsOwn) {
  EXPECT_EQ(InitializeGlobals(), 0);
  EXPECT_EQ(BX_GetMaxLayers(kBrvVersion), 4);
}

}  // namespace
