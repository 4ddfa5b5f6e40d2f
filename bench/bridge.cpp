// What a call through the kit costs, compared with a call of the host's function by a plain pointer, and with looking
// the function up each time. Prints the ratios of the least times over many turns, taken in turn within one run.
#include <CoreFoundation/CoreFoundation.h>
#include <benchmark/benchmark.h>

#include "bindhost.h"
#include "brevixpdk.h"
#include "sidebyside.h"

namespace {

using GetShowLayer = decltype(BX_GetShowLayer)*;
using GetCurrentWindow = decltype(BX_GetCurrentWindow)*;
using LoadTGF = decltype(BX_LoadTGF)*;

void* Lookup(CFStringRef name) { return CFBundleGetFunctionPointerForName(gBrevixBundle, name); }

}  // namespace

int main() {
  constexpr int kCalls = 2'000'000;
  BindHost(BRV_HOST_BUNDLE);
  // Kept where the compiler cannot see that they never change, as the kit's own pointers are.
  GetShowLayer volatile showLayer = reinterpret_cast<GetShowLayer>(Lookup(CFSTR("BX_GetShowLayer")));
  GetCurrentWindow volatile currentWindow = reinterpret_cast<GetCurrentWindow>(Lookup(CFSTR("BX_GetCurrentWindow")));
  LoadTGF volatile loadTGF = reinterpret_cast<LoadTGF>(Lookup(CFSTR("BX_LoadTGF")));

  PrintRatio(
      "a frame of a score (BX_LoadTGF): bridge / plain pointer", kCalls,
      [](int i) { benchmark::DoNotOptimize(BX_LoadTGF(0, i & 3, i % 200, 0, 1, kBrvVersion)); },
      [&](int i) { benchmark::DoNotOptimize(loadTGF(0, i & 3, i % 200, 0, 1, kBrvVersion)); });
  PrintRatio(
      "a pointer at once (BX_GetCurrentWindow): bridge / plain pointer", kCalls,
      [](int) { benchmark::DoNotOptimize(BX_GetCurrentWindow(kBrvVersion)); },
      [&](int) { benchmark::DoNotOptimize(currentWindow(kBrvVersion)); });
  PrintRatio(
      "a 16-bit number at once (BX_GetShowLayer): bridge / plain pointer", kCalls,
      [](int i) { benchmark::DoNotOptimize(BX_GetShowLayer(i & 3, kBrvVersion)); },
      [&](int i) { benchmark::DoNotOptimize(showLayer(i & 3, kBrvVersion)); });
  PrintRatio(
      "the same: lookup each time / bridge", kCalls / 200,
      [](int i) {
        const CFStringRef name =
            CFStringCreateWithCString(kCFAllocatorDefault, "BX_GetShowLayer", kCFStringEncodingMacRoman);
        const auto function = reinterpret_cast<GetShowLayer>(Lookup(name));
        CFRelease(name);
        benchmark::DoNotOptimize(function(i & 3, kBrvVersion));
      },
      [](int i) { benchmark::DoNotOptimize(BX_GetShowLayer(i & 3, kBrvVersion)); });
}
