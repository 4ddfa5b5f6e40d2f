// bx_sprintf while memory runs out: the text is empty, and nothing is lost.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>

#include "bxstring.h"
#include "tests/support/failingmemory.h"

namespace {

TEST(BxSprintf, LeavesAnEmptyTextWhereMemoryRunsOut) {
  static const UniChar kFormat[] = {'s', 't', 'a', 'f', 'f', ' ', '%', 'd', 0};
  std::array<UniChar, 16> text = {};
  int32 count = 0;
  const auto format = [&] {
    text.fill('x');
    count = bx_sprintf(text.data(), text.size(), kFormat, 12);
    return count != 0;
  };
  EXPECT_TRUE(format());
  bool failed = true;
  long successes = 0;
  for (; failed; ++successes) {
    const long before = LiveAllocations();
    {
      const FailingMemory memory(successes);
      format();
      failed = memory.HasFailed();
    }
    EXPECT_EQ(LiveAllocations(), before) << successes;
    SCOPED_TRACE(successes);
    const std::string whole = failed ? "" : "staff 12";
    EXPECT_EQ(count, static_cast<int32>(whole.size()));
    EXPECT_EQ(std::string(text.begin(), std::find(text.begin(), text.end(), 0)), whole);
  }
  EXPECT_GT(successes, 1) << "it needs no memory";
}

}  // namespace
