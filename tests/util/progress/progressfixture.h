// What the tests of progress reports share: a report, the host's handle, and a clock that the test moves.
#pragma once

#include <brvplatform.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "progress.h"
#include "recordinghost.h"
#include "steadyclock.h"

class Progress : public testing::Test {
 protected:
  static constexpr unsigned char kPeriodKey = 47;

  void SetUp() override {
    host_.On("BX_StartMassEdit", [this](const HostCall&) { return reinterpret_cast<std::uint64_t>(&handle_); });
  }

  void TearDown() override {
    BrvPlatformSetModifierFlags(0);
    BrvPlatformSetKeyDown(kPeriodKey, false);
  }

  void Start(int jobSize) {
    BXUtilPRStart(&report_, jobSize);
    elapsedMs_ = 0;
  }

  // Sets the time, in milliseconds after the start.
  int UpdateAfter(std::int64_t ms, int unitsDone) {
    LetTimePass(ms - elapsedMs_);
    elapsedMs_ = ms;
    return BXUtilPRUpdate(&report_, unitsDone);
  }

  int handle_ = 0;
  tProgressReport report_ = {};
  std::int64_t elapsedMs_ = 0;
  RecordingHost host_;
};
