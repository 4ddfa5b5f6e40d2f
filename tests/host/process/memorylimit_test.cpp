#include "host/process/memorylimit.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <future>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace brvhost {
namespace {

constexpr std::uint64_t kMegabyte = 1 << 20;

void Take(std::size_t size) {
  const auto memory = std::make_unique<volatile char[]>(size);
  memory[0] = 1;
}

// What is wrong when that much is taken under a limit of so much.
std::string Problem(std::uint64_t limit, std::size_t size) {
  try {
    MemoryLimit(limit, 0).During([size] { Take(size); });
  } catch (const MemoryError& error) {
    return error.what();
  }
  return "nothing";
}

class MemoryLimits : public testing::Test {
 protected:
  void SetUp() override {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the sanitizer ends the program when memory runs out";
#endif
  }
};

TEST_F(MemoryLimits, AreWhatMayBeTakenBesidesWhatIsThere) {
  const auto there = std::make_unique<char[]>(200 * kMegabyte);
  EXPECT_EQ(Problem(64 * kMegabyte, 60 * kMegabyte), "nothing");
  EXPECT_EQ(Problem(64 * kMegabyte, 65 * kMegabyte), "needs more than 64 MB of memory; --max-memory allows more");
}

TEST_F(MemoryLimits, AreStatedInTheLargestUnit) {
  EXPECT_EQ(Problem(1 << 30, std::size_t{2} << 30), "needs more than 1 GB of memory; --max-memory allows more");
  EXPECT_EQ(Problem(3 << 10, 200 * kMegabyte), "needs more than 3 KB of memory; --max-memory allows more");
  EXPECT_EQ(Problem(1025, 200 * kMegabyte), "needs more than 1025 bytes of memory; --max-memory allows more");
}

TEST_F(MemoryLimits, HoldForThreads) {
  const MemoryLimit limit(64 * kMegabyte, 1);
  const auto takeApart = [](std::size_t size) { std::async(std::launch::async, Take, size).get(); };
  EXPECT_NO_THROW(limit.During([&] { takeApart(60 * kMegabyte); }));
  EXPECT_THROW(limit.During([&] { takeApart(65 * kMegabyte); }), MemoryError);
}

TEST_F(MemoryLimits, LeaveOutTheStacksOfThreads) {
  constexpr int kThreads = 20;
  const MemoryLimit limit(kMegabyte, kThreads);
  std::promise<void> end;
  const std::shared_future<void> ended = end.get_future().share();
  std::vector<std::thread> threads;
  for (int i = 0; i < kThreads; ++i) threads.emplace_back([ended] { ended.wait(); });
  end.set_value();
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(threads.size(), std::size_t{kThreads});
}

TEST_F(MemoryLimits, EndWithTheObject) {
  std::make_unique<MemoryLimit>(kMegabyte, 0).reset();
  EXPECT_NO_THROW(Take(200 * kMegabyte));
}

TEST_F(MemoryLimits, GiveNoAdviceWhereALowerOneHolds) {
  const MemoryLimit lower(64 * kMegabyte, 0);
  EXPECT_EQ(Problem(1 << 30, 65 * kMegabyte), "there is not enough memory for this score");
}

TEST(DefaultMemory, IsAGigabyteOrAMultipleOfTheSizeAndNoMoreThanTheMachineHas) {
  const auto machine = static_cast<std::uint64_t>(sysconf(_SC_PHYS_PAGES)) *
                       static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE)) / kMegabyte;
  EXPECT_EQ(DefaultMemory(0) / kMegabyte, std::min<std::uint64_t>(1024, machine));
  EXPECT_EQ(DefaultMemory(64 * kMegabyte) / kMegabyte, std::min<std::uint64_t>(1024, machine));
  EXPECT_EQ(DefaultMemory(100 * kMegabyte) / kMegabyte, std::min<std::uint64_t>(1600, machine));
  EXPECT_EQ(DefaultMemory(100 * kMegabyte + 1) / kMegabyte, std::min<std::uint64_t>(1601, machine));
  EXPECT_EQ(DefaultMemory(std::uint64_t{1} << 50) / kMegabyte, machine);
  EXPECT_EQ(DefaultMemory(std::uint64_t{1} << 50) % kMegabyte, 0u);
}

}  // namespace
}  // namespace brvhost
