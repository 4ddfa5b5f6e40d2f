// A score for the command of the menu items.
#pragma once

#include <brvplatform.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <map>

#include "brevixpdk.h"
#include "convention.h"
#include "recordinghost.h"
#include "testscore.h"

inline constexpr int kHide = 0;
inline constexpr int kShow = 1;
inline constexpr std::int32_t kEverything = 0x7FFFFFFF;

class Command : public testing::Test {
 protected:
  void SetUp() override {
    host_.Before("BX_SaveTGF", [](const HostCall& call) { EXPECT_NE(call.Pointer<void>(0), nullptr); });
    host_.Before("BX_FreeTGF", [this](const HostCall&) {
      const auto action = afterFrame_.find(++frees_);
      if (action != afterFrame_.end()) action->second();
    });
    region_.regionScope = 0xABCD;
  }

  void TearDown() override { HoldCommandPeriod(false); }

  static void HoldCommandPeriod(bool held) {
    BrvPlatformSetModifierFlags(held ? 0x100000 : 0);
    BrvPlatformSetKeyDown(47, held);
  }

  // What happens once the command has freed its n-th frame.
  void AfterFrame(int n, std::function<void()> action) { afterFrame_[n] = std::move(action); }
  void CancelAfterFrame(int n) {
    AfterFrame(n, [] { HoldCommandPeriod(true); });
  }

  static EXENTRY Note(std::int32_t position, int flags) {
    EXENTRY entry = NoteAt(position);
    entry.flags = static_cast<std::uint16_t>(flags);
    return entry;
  }

  // A frame of notes that have the same flags.
  void Put(FramePlace place, const std::vector<std::int32_t>& positions, int flags = 0) {
    std::vector<EXENTRY> entries;
    for (const std::int32_t position : positions) entries.push_back(Note(position, flags));
    score_.Put(place, std::move(entries));
  }

  void HideLayer(int layer) {
    host_.On("BX_GetShowLayer", [layer](const HostCall& call) { return call.Int(0) != layer; });
  }

  void Select(int startStaff, int endStaff, int startMeasure, int endMeasure, std::int32_t from = 0,
              std::int32_t to = kEverything) {
    region_.startStaff = static_cast<std::int16_t>(startStaff);
    region_.endStaff = static_cast<std::int16_t>(endStaff);
    region_.startMeasure = static_cast<std::int16_t>(startMeasure);
    region_.endMeasure = static_cast<std::int16_t>(endMeasure);
    region_.startPosition = from;
    region_.endPosition = to;
  }

  int Run(int item) { return BrevixExtensionInvoke(nullptr, item, &region_, nullptr); }

  // As they were saved.
  std::vector<int> Flags(FramePlace place) const {
    std::vector<int> flags;
    for (const EXENTRY& entry : score_.At(place)) flags.push_back(entry.flags);
    return flags;
  }

  RecordingHost host_;
  TestScore score_{host_};
  EREGION region_ = {};
  int frees_ = 0;
  std::map<int, std::function<void()>> afterFrame_;
};
