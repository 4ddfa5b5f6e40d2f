// A document of frames for the command of the menu items: by staff, measure and layer, as a host keeps them.
#pragma once

#include <brvplatform.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <tuple>

#include "brevixpdk.h"
#include "convention.h"
#include "recordinghost.h"

inline constexpr int kHide = 0;
inline constexpr int kShow = 1;
inline constexpr std::int32_t kEverything = 0x7FFFFFFF;

class Command : public testing::Test {
 protected:
  using Place = std::tuple<int, int, int>;

  struct Frame {
    std::vector<EXENTRY> entries;
    EXTGF2005a record = {};
  };

  void SetUp() override {
    host_.On("BX_GetMaxLayers", [this](const HostCall&) { return layers_; });
    host_.On("BX_GetShowLayer", [this](const HostCall& call) { return call.Int(0) != hiddenLayer_; });
    host_.On("BX_LoadTGF", [this](const HostCall& call) { return Load({call.Int(1), call.Int(2), call.Int(3)}); });
    host_.On("BX_SaveTGF", [this](const HostCall& call) {
      ++saves_;
      if (saves_ == cancelAtSave_) HoldCommandPeriod(true);
      EXPECT_NE(call.Pointer<void>(0), nullptr);
      return 1;
    });
    host_.On("BX_FreeTGF", [this](const HostCall&) {
      ++frees_;
      if (frees_ == cancelAtFree_) HoldCommandPeriod(true);
      return 0;
    });
    region_.regionScope = 0xABCD;
  }

  void TearDown() override { HoldCommandPeriod(false); }

  static void HoldCommandPeriod(bool held) {
    BrvPlatformSetModifierFlags(held ? 0x100000 : 0);
    BrvPlatformSetKeyDown(47, held);
  }

  void Add(Place place, const std::vector<std::int32_t>& positions, int flags = 0) {
    Frame& frame = frames_[place];
    for (const std::int32_t position : positions) {
      EXENTRY entry = {};
      entry.position = position;
      entry.flags = static_cast<std::uint16_t>(flags);
      entry.noteCount = 1;
      frame.entries.push_back(entry);
    }
    frame.record.entries = frame.entries.data();
    frame.record.entryCount = static_cast<std::int16_t>(frame.entries.size());
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

  std::vector<int> Flags(Place place) const {
    std::vector<int> flags;
    for (const EXENTRY& entry : frames_.at(place).entries) flags.push_back(entry.flags);
    return flags;
  }

  std::uint64_t Load(Place place) {
    const auto found = frames_.find(place);
    return found == frames_.end() ? 0 : reinterpret_cast<std::uint64_t>(&found->second.record);
  }

  RecordingHost host_;
  EREGION region_ = {};
  std::map<Place, Frame> frames_;
  std::uint64_t layers_ = 1;
  int hiddenLayer_ = -1;
  int saves_ = 0;
  int frees_ = 0;
  int cancelAtSave_ = 0;
  int cancelAtFree_ = 0;
};
