#include "tests/support/property.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

namespace {

TEST(ExpectHolds, FailsTheTestWhereThePropertyDoesNotHold) {
  EXPECT_NONFATAL_FAILURE(ExpectHolds("no number is 7", [] { RC_ASSERT(*rc::gen::just(7) != 7); }), "no number is 7");
}

TEST(ExpectHolds, PassesWhereThePropertyHolds) {
  ExpectHolds("7 is 7", [] { RC_ASSERT(*rc::gen::just(7) == 7); });
}

}  // namespace
