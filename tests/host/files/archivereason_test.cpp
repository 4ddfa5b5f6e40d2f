#include "host/files/archivereason.h"

#include <gtest/gtest.h>

namespace brvhost {
namespace {

TEST(ArchiveReason, NamesTheNumberOfAnErrorThatIsNotKnown) {
  EXPECT_EQ(ArchiveReason(1000), "error 1000 of the library for archives");
}

}  // namespace
}  // namespace brvhost
