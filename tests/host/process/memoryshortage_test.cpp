#include "host/process/memoryshortage.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <stdexcept>

namespace brvhost {
namespace {

constexpr std::size_t kTooMuch = PTRDIFF_MAX / 2;

void Take(std::size_t size) {
  const auto memory = std::make_unique<volatile char[]>(size);
  memory[0] = 1;
}

TEST(WithEnoughMemory, ReturnsWhatTheWorkReturns) {
  EXPECT_EQ(WithEnoughMemory([] { return 7; }), 7);
}

TEST(WithEnoughMemory, PassesOnWhatTheWorkThrows) {
  EXPECT_THROW(WithEnoughMemory([]() -> int { throw std::runtime_error("for another reason"); }), std::runtime_error);
}

class Shortages : public testing::Test {
 protected:
  void SetUp() override {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the sanitizer's operator new has no handler";
#endif
  }
};

TEST_F(Shortages, SpoilTheResultOfWorkThatMadeDoWithout) {
  const auto makesDo = [] {
    try {
      Take(kTooMuch);
    } catch (const std::bad_alloc&) {
      return 0;
    }
    return 1;
  };
  EXPECT_THROW(WithEnoughMemory(makesDo), std::bad_alloc);
  EXPECT_TRUE(HasMemoryRunOut());
}

TEST_F(Shortages, AreReportedInsteadOfWhatTheyLedTo) {
  const auto complains = []() -> int {
    try {
      Take(kTooMuch);
    } catch (const std::bad_alloc&) {
      throw std::runtime_error("no such bundle");
    }
    return 0;
  };
  EXPECT_THROW(WithEnoughMemory(complains), std::bad_alloc);
}

TEST_F(Shortages, AreForgottenWhenTheNextWorkBegins) {
  EXPECT_THROW(WithEnoughMemory([] {
                 Take(kTooMuch);
                 return 0;
               }),
               std::bad_alloc);
  EXPECT_EQ(WithEnoughMemory([] { return 7; }), 7);
}

}  // namespace
}  // namespace brvhost
