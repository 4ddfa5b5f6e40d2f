// What the command's walk over a score costs, beside a bare loop over the same frames. Nothing is left to change, so
// that loading and saving are no part of it. With a path, that score; without, a sample.
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

// What is left of the walk when only its purpose is: set the bit where it is clear.
bool BareLoop(const std::vector<EXTGF2005a*>& frames, std::int32_t low, std::int32_t high) {
  bool changed = false;
  for (EXTGF2005a* const frame : frames) {
    for (int i = 0; i < frame->entryCount; ++i) {
      EXENTRY& entry = frame->entries[i];
      if (entry.position > high) break;
      if (entry.position < low || (entry.flags & kNoLegerLines) != 0) continue;
      entry.flags |= kNoLegerLines;
      changed = true;
    }
  }
  return changed;
}

}  // namespace

int main(int argc, char** argv) {
  BindHost(BRV_HOST_BUNDLE);
  EREGION region = Find<OpenScore>(kOpenScoreName)(argc > 1 ? argv[1] : BRV_SAMPLE);
  const std::vector<EXTGF2005a*>& frames = *Find<AllFrames>(kAllFramesName)();
  long entries = 0;
  for (const EXTGF2005a* const frame : frames) entries += frame->entryCount;
  std::printf("%zu frames of %ld entries in %d places\n", frames.size(), entries,
              region.endStaff * region.endMeasure * BX_GetMaxLayers(kBrvVersion));
  DoShowLegerLines(&region, 0);

  const int calls = static_cast<int>(2'000'000 / (entries + 1)) + 1;
  const auto bare = [&](int) { benchmark::DoNotOptimize(BareLoop(frames, 0, INT32_MAX)); };
  PrintRatio(
      "the walk / a bare loop over its frames", calls,
      [&](int) { benchmark::DoNotOptimize(DoShowLegerLines(&region, 0)); }, bare);
  PrintRatio(
      "the walk without progress reports / a bare loop over its frames", calls,
      [&](int) { benchmark::DoNotOptimize(DoShowLegerLinesSilently(&region, 0)); }, bare);
}
