#include "host/batch/job.h"

#include <gtest/gtest.h>

namespace brvhost {
namespace {

TEST(Job, WritesNothingWithoutATarget) {
  const Job job{"score", std::nullopt};
  EXPECT_FALSE(job.Writes(0));
  EXPECT_FALSE(job.Writes(1));
}

TEST(Job, WritesAnUnchangedScoreUnlessItIsToBeLeftAlone) {
  EXPECT_TRUE((Job{"score", "target"}).Writes(0));
  EXPECT_FALSE((Job{"score", "score", true}).Writes(0));
  EXPECT_TRUE((Job{"score", "score", true}).Writes(1));
}

}  // namespace
}  // namespace brvhost
