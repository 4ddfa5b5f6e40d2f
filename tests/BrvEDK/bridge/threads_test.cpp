// First calls of host functions from several threads at once.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <barrier>
#include <chrono>
#include <thread>

#include "brevixpdk.h"
#include "lookupsteps.h"
#include "recordinghost.h"

namespace {

constexpr int kThreads = 8;

struct Function {
  const char* name;
  short16 (*call)(BrvVersion);
};

// Functions of the plainest kind, some of them with a default of their own.
constexpr Function kFunctions[] = {
    {"BX_GetMaxLayers", BX_GetMaxLayers},           {"BX_IsMachO", BX_IsMachO},
    {"BX_GetWindowCount", BX_GetWindowCount},       {"BX_GetPlaybackSystem", BX_GetPlaybackSystem},
    {"BX_GetCurrentPartID", BX_GetCurrentPartID},   {"BX_GetCurrentNuvexaDocument", BX_GetCurrentNuvexaDocument},
    {"BX_NewNuvexaDocument", BX_NewNuvexaDocument}, {"BX_CloseCurrentDocumentWindow", BX_CloseCurrentDocumentWindow},
};
constexpr std::size_t kCount = std::size(kFunctions);

class FirstCalls : public testing::Test {
 protected:
  void SetUp() override {
    for (std::size_t i = 0; i < kCount; ++i) host_.Answer(kFunctions[i].name, 100 + i);
    lookupSteps.findFunction = [this](const std::string& name) {
      {
        const std::lock_guard lock(mutex_);
        ++lookups_[name];
      }
      // Long enough for the other threads to arrive.
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
    };
  }
  void TearDown() override { lookupSteps = {}; }

  // Each thread calls every function, and begins with another; all of them begin at once.
  void CallFromAllThreads() {
    std::barrier start(kThreads);
    std::vector<std::jthread> threads;
    for (std::size_t thread = 0; thread < kThreads; ++thread) {
      threads.emplace_back([this, &start, thread] {
        start.arrive_and_wait();
        for (std::size_t i = 0; i < kCount; ++i) {
          // Two threads at a time begin with the same function.
          const std::size_t which = (thread / 2 + i) % kCount;
          results_[thread][which] = kFunctions[which].call(kBrvVersion);
        }
      });
    }
  }

  RecordingHost host_;
  std::mutex mutex_;
  std::map<std::string, int> lookups_;
  int results_[kThreads][kCount] = {};
};

TEST_F(FirstCalls, FromSeveralThreadsLookEachFunctionUpOnceAndReachTheHost) {
  CallFromAllThreads();
  for (std::size_t thread = 0; thread < kThreads; ++thread) {
    for (std::size_t i = 0; i < kCount; ++i) {
      EXPECT_EQ(results_[thread][i], static_cast<int>(100 + i)) << kFunctions[i].name << ", thread " << thread;
    }
  }
  EXPECT_EQ(lookups_.size(), kCount);
  for (const Function& function : kFunctions) {
    EXPECT_EQ(lookups_[function.name], 1) << function.name;
    EXPECT_EQ(host_.Count(function.name), kThreads) << function.name;
  }

  CallFromAllThreads();
  for (const Function& function : kFunctions) {
    EXPECT_EQ(lookups_[function.name], 1) << function.name;
    EXPECT_EQ(host_.Count(function.name), 2 * kThreads) << function.name;
  }
}

}  // namespace
