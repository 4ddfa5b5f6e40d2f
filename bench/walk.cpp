// What the command's walk over a score costs, compared with a bare loop over the same frames. Nothing is left to
// change, so that no frame is saved. With a path, that score is used; without one, a sample.
#include <CoreFoundation/CoreFoundation.h>
#include <benchmark/benchmark.h>

#include <cstdio>

#include "bindhost.h"
#include "brevixpdk.h"
#include "legerlinescommand.h"
#include "sidebyside.h"
#include "walkhost.h"

extern "C" short16 DoShowLegerLinesSilently(EREGION* region, short16 variant);

namespace {

template <class Function>
Function* Find(const char* name) {
  const CFStringRef text = CFStringCreateWithCString(kCFAllocatorDefault, name, kCFStringEncodingMacRoman);
  void* const address = CFBundleGetFunctionPointerForName(gBrevixBundle, text);
  CFRelease(text);
  return reinterpret_cast<Function*>(address);
}

// Sets the bit where it is clear. Returns whether it was clear anywhere.
bool HideFrame(EXTGF2005a& frame, std::int32_t low, std::int32_t high) {
  bool changed = false;
  for (int i = 0; i < frame.entryCount; ++i) {
    EXENTRY& entry = frame.entries[i];
    if (entry.position > high) break;
    if (entry.position < low || (entry.flags & kNoLegerLines) != 0) continue;
    entry.flags |= kNoLegerLines;
    changed = true;
  }
  return changed;
}

// What is left of the walk if its frames are at hand.
bool BareLoop(const std::vector<EXTGF2005a*>& frames) {
  bool changed = false;
  for (EXTGF2005a* const frame : frames) changed |= HideFrame(*frame, 0, INT32_MAX);
  return changed;
}

// What is left of it if the host has to be asked for them: the host's functions, called by their addresses.
class AskingLoop {
 public:
  explicit AskingLoop(const EREGION& region) : region_(region), layers_(BX_GetMaxLayers(kBrvVersion)) {}

  bool Run() const {
    bool changed = false;
    for (int staff = region_.startStaff; staff <= region_.endStaff; ++staff) {
      for (int layer = 0; layer < layers_; ++layer) {
        for (int measure = region_.startMeasure; measure <= region_.endMeasure; ++measure) {
          changed |= Visit(staff, measure, layer);
        }
      }
    }
    return changed;
  }

 private:
  bool Visit(int staff, int measure, int layer) const {
    EXTGF2005a* const frame = load_(region_.regionScope, staff, measure, layer, 1, kBrvVersion);
    if (frame == nullptr) return false;
    const bool changed = HideFrame(*frame, 0, INT32_MAX);
    free_(frame, kBrvVersion);
    return changed;
  }

  decltype(BX_LoadTGF)* const load_ = Find<decltype(BX_LoadTGF)>("BX_LoadTGF");
  decltype(BX_FreeTGF)* const free_ = Find<decltype(BX_FreeTGF)>("BX_FreeTGF");
  const EREGION region_;
  const int layers_;
};

}  // namespace

int main(int argc, char** argv) {
  BindHost(BRV_HOST_BUNDLE);
  EREGION region = Find<decltype(WalkHostOpenScore)>("WalkHostOpenScore")(argc > 1 ? argv[1] : BRV_SAMPLE);
  const std::vector<EXTGF2005a*>& frames = *Find<decltype(WalkHostAllFrames)>("WalkHostAllFrames")();
  long entries = 0;
  for (const EXTGF2005a* const frame : frames) entries += frame->entryCount;
  std::printf("%zu frames of %ld entries in %d places\n", frames.size(), entries,
              region.endStaff * region.endMeasure * BX_GetMaxLayers(kBrvVersion));
  DoShowLegerLines(&region, 0);

  const int calls = static_cast<int>(2'000'000 / (entries + 1)) + 1;
  const AskingLoop asking(region);
  const auto walk = [&](int) { benchmark::DoNotOptimize(DoShowLegerLines(&region, 0)); };
  const auto silentWalk = [&](int) { benchmark::DoNotOptimize(DoShowLegerLinesSilently(&region, 0)); };
  const auto bareLoop = [&](int) { benchmark::DoNotOptimize(BareLoop(frames)); };
  const auto askingLoop = [&](int) { benchmark::DoNotOptimize(asking.Run()); };
  PrintRatio("the walk / a bare loop over its frames", calls, walk, bareLoop);
  PrintRatio("the walk without progress reports / a bare loop over its frames", calls, silentWalk, bareLoop);
  PrintRatio("the same / a loop that asks the host for the frames", calls, silentWalk, askingLoop);
}
