// What the kit does for a host function while memory runs out: where it cannot look the function up, the result is that
// of a host without it, nothing is lost, and no exception comes out.
#include <gtest/gtest.h>

#include <cstddef>
#include <iterator>
#include <new>
#include <string>

#include "brevixpdk.h"
#include "recordinghost.h"
#include "tests/support/failingmemory.h"

namespace {

// Functions that are looked up when first called, with their results in a host without them.
struct Function {
  const char* name;
  int (*call)();
  int defaultResult;
};

const Function kFunctions[] = {
    {"BX_GetMaxLayers", [] { return static_cast<int>(BX_GetMaxLayers(kBrvVersion)); }, 4},
    {"BX_GetWindowCount", [] { return static_cast<int>(BX_GetWindowCount(kBrvVersion)); }, 0},
    {"BX_CountParts", [] { return static_cast<int>(BX_CountParts(kBrvVersion)); }, -1},
    {"BX_IsMachO", [] { return static_cast<int>(BX_IsMachO(kBrvVersion)); }, 0},
    {"BX_GetShowLayer", [] { return static_cast<int>(BX_GetShowLayer(0, kBrvVersion)); }, 0},
    {"BX_EndBrevixEdit", [] { return static_cast<int>(BX_EndBrevixEdit(kBrvVersion)); }, 1},
};
constexpr int kAnswer = 7;

// Each function has one allocation more than the one before, until the first that fails is the recording host's own.
TEST(FunctionsWithoutMemory, AreThoseOfAHostWithoutThem) {
  RecordingHost host;
  std::size_t i = 0;
  for (;; ++i) {
    ASSERT_LT(i, std::size(kFunctions));
    const Function& function = kFunctions[i];
    SCOPED_TRACE(function.name);
    const long before = LiveAllocations();
    int result = 0;
    try {
      const FailingMemory memory(static_cast<long>(i));
      result = function.call();
    } catch (const std::bad_alloc&) {
      break;
    }
    EXPECT_EQ(host.Count(function.name), 0);
    EXPECT_EQ(result, function.defaultResult);
    EXPECT_EQ(LiveAllocations(), before);
    host.Answer(function.name, kAnswer);
    EXPECT_EQ(function.call(), function.defaultResult) << "which is kept, as always";
  }
  EXPECT_GT(i, 0U) << "a lookup needs no memory";
}

TEST(LinesWithoutMemory, AreNotShown) {
  const auto show = [] { DbgPrintF("staff %d", 12); };
  show();
  bool failed = true;
  long successes = 0;
  for (; failed; ++successes) {
    testing::internal::CaptureStderr();
    const long before = LiveAllocations();
    {
      const FailingMemory memory(successes);
      show();
      failed = memory.HasFailed();
    }
    EXPECT_EQ(LiveAllocations(), before) << successes;
    const std::string shown = testing::internal::GetCapturedStderr();
    EXPECT_EQ(shown.empty(), failed) << successes;
  }
  EXPECT_GT(successes, 1) << "it needs no memory";
}

}  // namespace
