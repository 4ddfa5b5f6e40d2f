// A host for benchmarks: functions that do as little as possible, and one that does what a real host's does.
#include <unordered_map>

#include "brevixpdk.h"

namespace {

volatile unsigned shownLayers = 0x5;
int window;

// The frames of a score of 4 staves, 200 measures and 4 layers.
std::unordered_map<std::uint64_t, EXTGF2005a> frames = [] {
  std::unordered_map<std::uint64_t, EXTGF2005a> made;
  for (std::uint64_t place = 0; place < std::uint64_t{4} * 200 * 4; ++place) made[place] = {};
  return made;
}();

}  // namespace

// Looks the layer up in the document's settings; the result is 16-bit.
extern "C" short16 BX_GetShowLayer(short16 layer, BrvVersion) {
  return static_cast<int>(shownLayers >> (layer & 31) & 1);
}

// Returns a pointer, which the kit passes on unchanged.
extern "C" HostResult BX_GetCurrentWindow(BrvVersion) { return reinterpret_cast<HostResult>(&window); }

// Finds a frame of the score.
extern "C" EXTGF2005a* BX_LoadTGF(ushort16, short16 staff, short16 measure, short16 layer, short16, BrvVersion) {
  const auto found = frames.find(static_cast<std::uint64_t>((staff * 200 + measure) * 4 + layer));
  return found == frames.end() ? nullptr : &found->second;
}
