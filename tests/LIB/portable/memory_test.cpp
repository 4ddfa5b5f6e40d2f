// The extension's texts while memory runs out: a lookup delivers what it delivers where there is no text, loses
// nothing, and the next is whole again.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string>

#include "portable.h"
#include "recordinghost.h"
#include "tests/support/assertions.h"
#include "tests/support/failingmemory.h"

namespace {

constexpr int kHide = 0x4E200001;
constexpr int kMissing = 0x4E2000FF;

class TextsWithoutMemory : public testing::Test {
 protected:
  void SetUp() override {
    setenv("LANGUAGE", "en", 1);
    // What the platform keeps for the life of the process once a text was missing.
    CFRelease(CopyPlugInStringResource(kMissing));
  }

  RecordingHost host_;
};

// The text as it comes into a buffer in which no allocation is made.
template <class Character>
class Delivery {
 public:
  void Ask() {
    buffer_.fill('x');
    returned_ = PlugIn_GetStringResource(kHide, buffer_.data(), kSize);
  }
  // Of units below 0x80.
  std::string Text() const {
    EXPECT_EQ(returned_, buffer_.data());
    const auto end = std::find(buffer_.begin(), buffer_.end(), 0);
    EXPECT_NE(end, buffer_.end());
    return {buffer_.begin(), end};
  }

 private:
  static constexpr short kSize = 64;
  std::array<Character, kSize> buffer_;
  Character* returned_ = nullptr;
};

// Each allocation of a lookup fails in turn.
template <class Character>
void ExpectWholeKeyOrNothing() {
  Delivery<Character> delivery;
  delivery.Ask();  // finds the bundle and its table
  const std::string whole = delivery.Text();
  ASSERT_EQ(whole, "Hide Ledger Lines");
  bool failed = true;
  long successes = 0;
  for (; failed; ++successes) {
    const long before = LiveAllocations();
    {
      const FailingMemory memory(successes);
      delivery.Ask();
      failed = memory.HasFailed();
    }
    EXPECT_EQ(LiveAllocations(), before) << successes;
    EXPECT_THAT(delivery.Text(), testing::AnyOf("", "20000,1", whole)) << successes;
  }
  EXPECT_GT(successes, 1) << "it needs no memory";
  delivery.Ask();
  EXPECT_EQ(delivery.Text(), whole);
}

// Before the bundle is found.
TEST(OwnBundleDeathTest, WithoutMemoryToReadItFailsTheAssertion) {
  for (const long successes : {0, 1, 2, 3}) {
    EXPECT_DEATH(
        {
          const FailingMemory memory(successes);
          CopyPlugInStringResource(kHide);
        },
        testing::StrEq(AssertionMessage("CopyPlugInStringResource", "LIB/portable:176", "bundleRef != NULL")));
  }
}

TEST_F(TextsWithoutMemory, AreUnitsOrNone) { ExpectWholeKeyOrNothing<UniChar>(); }

TEST_F(TextsWithoutMemory, AreBytesOrNone) { ExpectWholeKeyOrNothing<char>(); }

}  // namespace
