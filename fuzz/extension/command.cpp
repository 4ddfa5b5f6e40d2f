// The commands of the menu on a host that answers anything: which frames are asked for, what changes in them, and that
// each is given back.
#include <brvplatform.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <deque>
#include <string>
#include <vector>

#include "brevixpdk.h"
#include "convention.h"
#include "fuzz/support/input.h"
#include "fuzz/support/require.h"
#include "fuzz/support/target.h"
#include "testhost/recordinghost.h"

namespace {

constexpr int kItems = 2;

// 16 bits of an answer, with others around them that do not count.
std::uint64_t Answer(int value) { return std::uint64_t{0x5A5A0000} | static_cast<std::uint16_t>(value); }

// A frame as the host gave it, and as it should come back.
struct Frame {
  std::vector<EXENTRY> entries;
  std::vector<std::uint16_t> wanted;  // flags
  EXTGF2005a record = {};
  bool changes = false;
  int saves = 0;
  int frees = 0;
};

struct Place {
  int scope;
  int staff;
  int measure;
  int layer;
  bool operator==(const Place&) const = default;
};

class AnyHost {
 public:
  AnyHost(RecordingHost& host, Input& input, const EREGION& region, bool hides)
      : input_(input), region_(region), hides_(hides) {
    host.Forget();
    layers_ = input.Below(8) == 0 ? -static_cast<int>(input.Word() % 30000) : input.Below(5);
    shownLayers_ = input.Byte();
    cancelAfter_ = input.Below(4) == 0 ? input.Below(10) + 1 : 0;
    isYes_ = input.Flag();
    host.On("BX_GetMaxLayers", [this](const HostCall&) { return Answer(layers_); });
    host.On("BX_GetShowLayer", [this](const HostCall& call) { return Answer(IsShown(call.Int(0)) ? 0x0100 : 0); });
    host.On("BX_LoadTGF", [this](const HostCall& call) { return Load(call); });
    host.On("BX_SaveTGF", [this](const HostCall& call) { return Save(call); });
    host.On("BX_FreeTGF", [this](const HostCall& call) { return Free(call); });
    host.On("BX_AlertMessage", [this](const HostCall& call) { return Alert(call); });
  }
  ~AnyHost() { HoldCancelKeys(false); }
  AnyHost(const AnyHost&) = delete;
  AnyHost& operator=(const AnyHost&) = delete;

  bool IsYes() const { return isYes_; }
  bool HasLoaded() const { return !places_.empty(); }
  bool HasChanged() const {
    return std::ranges::any_of(frames_, [](const Frame& frame) { return frame.changes; });
  }
  const std::vector<int>& Alerts() const { return alerts_; }

  void RequireAllPlaces() const {
    std::vector<Place> expected;
    for (int staff = region_.startStaff; staff <= region_.endStaff; ++staff) {
      for (int layer = 0; layer < layers_; ++layer) {
        if (!IsShown(layer)) continue;
        for (int measure = region_.startMeasure; measure <= region_.endMeasure; ++measure) {
          expected.push_back({region_.regionScope, staff, measure, layer});
        }
      }
    }
    if (isCancelled_) expected.resize(std::min(expected.size(), places_.size()));
    Require(places_ == expected, "each frame of the region is loaded once, up to a cancel");
  }

  void RequireFrames() const {
    for (const Frame& frame : frames_) {
      Require(frame.frees == 1, "each frame is freed once");
      Require(frame.saves == (frame.changes ? 1 : 0), "a frame is saved where it has changed");
      for (std::size_t i = 0; i < frame.entries.size(); ++i) {
        Require(frame.entries[i].flags == frame.wanted[i], "the entries of the region change, and no others");
      }
    }
  }

 private:
  static void HoldCancelKeys(bool held) {
    BrvPlatformSetModifierFlags(held ? kCommandModifier : 0);
    BrvPlatformSetKeyDown(kPeriodKey, held);
  }

  bool IsShown(int layer) const { return (shownLayers_ >> (layer & 7) & 1) != 0; }

  bool IsInside(int measure, std::int32_t position) const {
    return (measure != region_.startMeasure || position >= region_.startPosition) &&
           (measure == region_.startMeasure || position >= 0) &&
           (measure != region_.endMeasure || position <= region_.endPosition);
  }

  // Entries in order, as every host has them.
  void Fill(Frame& frame, int measure) {
    frame.entries.resize(static_cast<std::size_t>(input_.Below(5)));
    std::int32_t position = input_.Below(8) == 0 ? static_cast<std::int32_t>(input_.Long()) : 0;
    for (EXENTRY& entry : frame.entries) {
      const std::string_view bytes = input_.Text(8);
      std::memset(&entry, input_.Byte(), sizeof(entry));
      std::ranges::copy(bytes, reinterpret_cast<char*>(entry.notes));
      entry.flags = input_.Word();
      entry.noteCount = static_cast<std::int16_t>(input_.Below(14) - 1);
      entry.position = position;
      position += std::min<std::int32_t>(input_.Byte() * 100, INT32_MAX - std::max(position, 0));
      const auto wanted = static_cast<std::uint16_t>(hides_ ? entry.flags | 0x40 : entry.flags & ~0x40);
      frame.wanted.push_back(IsInside(measure, entry.position) ? wanted : entry.flags);
      frame.changes = frame.changes || frame.wanted.back() != entry.flags;
    }
    frame.record.entries = frame.entries.data();
    frame.record.entryCount = static_cast<std::int16_t>(frame.entries.size());
    if (frame.entries.empty()) frame.record.entryCount = static_cast<std::int16_t>(-input_.Byte());
  }

  std::uint64_t Load(const HostCall& call) {
    places_.push_back({call.Int(0), call.Int(1), call.Int(2), call.Int(3)});
    if (input_.Below(4) == 0) return 0;
    Frame& frame = frames_.emplace_back();
    Fill(frame, places_.back().measure);
    return reinterpret_cast<std::uint64_t>(&frame.record);
  }

  Frame& FrameOf(const HostCall& call) {
    Require(!frames_.empty() && call.Pointer<EXTGF2005a>(0) == &frames_.back().record,
            "one frame is worked on at a time");
    return frames_.back();
  }

  std::uint64_t Save(const HostCall& call) {
    Frame& frame = FrameOf(call);
    Require(frame.frees == 0, "a frame is saved before it is freed");
    ++frame.saves;
    return Answer(input_.Word());
  }

  std::uint64_t Free(const HostCall& call) {
    ++FrameOf(call).frees;
    if (static_cast<int>(frames_.size()) == cancelAfter_) HoldCancelKeys(isCancelled_ = true);
    return Answer(input_.Word());
  }

  std::uint64_t Alert(const HostCall& call) {
    alerts_.push_back(call.Int(1));
    return Answer(isYes_ ? kAlertYes : input_.Byte() + 2);
  }

  Input& input_;
  const EREGION& region_;
  const bool hides_;
  int layers_ = 0;
  int shownLayers_ = 0;
  int cancelAfter_ = 0;  // so many frames; 0: never
  bool isYes_ = false;
  bool isCancelled_ = false;
  std::vector<Place> places_;
  std::deque<Frame> frames_;
  std::vector<int> alerts_;
};

// Few staves and measures, wherever they are.
EREGION AnyRegion(Input& input) {
  EREGION region = {};
  const auto any = [&input](int most) {
    return static_cast<std::int16_t>(input.Below(8) == 0 ? input.Word() % 32000 : 1 + input.Below(most));
  };
  region.regionScope = input.Word();
  region.startStaff = any(3);
  region.startMeasure = any(3);
  region.endStaff = static_cast<std::int16_t>(region.startStaff + input.Below(5) - 1);
  region.endMeasure = static_cast<std::int16_t>(region.startMeasure + input.Below(5) - 1);
  region.startPosition = input.Flag() ? input.Byte() * 50 : static_cast<std::int32_t>(input.Long());
  region.endPosition = input.Flag() ? input.Byte() * 50 : static_cast<std::int32_t>(input.Long());
  return region;
}

void Check(Input& input) {
  static RecordingHost recorder;
  const int item = input.Below(8) == 0 ? input.Word() : input.Below(kItems);
  const bool isSelected = input.Below(4) != 0;
  EREGION region = AnyRegion(input);
  AnyHost host(recorder, input, region, item == 0);
  const int result = BrevixExtensionInvoke(nullptr, item, isSelected ? &region : nullptr, &region);
  if (item >= kItems) {
    Require(result == 0 && recorder.Calls().empty(), "there are two items");
    return;
  }
  if (!isSelected && !host.IsYes()) {
    Require(result == 0 && !host.HasLoaded(), "without a yes nothing is done");
    return;
  }
  host.RequireAllPlaces();
  host.RequireFrames();
  Require((result != 0) == host.HasChanged(), "the result is whether anything has changed");
  std::vector<int> alerts;
  if (!isSelected) alerts.push_back(kAlertQuestion);
  if (!host.HasChanged()) alerts.push_back(kAlertMessage);
  Require(host.Alerts() == alerts, "there is a question without a selection, and a message without a change");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  Input input(bytes, size);
  Check(input);
  return 0;
}
