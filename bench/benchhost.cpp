// A host for measuring: functions that do as little as a host's can, and one that does what a host's does.
#include <unordered_map>

#include "hostrecords.h"
#include "hosttypes.h"

namespace {

volatile unsigned shownLayers = 0x5;
int window;

// The frames of a score of 4 staves, 200 measures and 4 layers.
std::unordered_map<std::uint64_t, EXTGF2005a>& Frames() {
  static std::unordered_map<std::uint64_t, EXTGF2005a> frames = [] {
    std::unordered_map<std::uint64_t, EXTGF2005a> made;
    for (std::uint64_t place = 0; place < 4 * 200 * 4; ++place) made[place] = {};
    return made;
  }();
  return frames;
}

}  // namespace

// Looks the layer up in the document's settings; the result is 16-bit.
extern "C" BRV_EXPORT int BX_GetShowLayer(int layer, BrvVersion) {
  return static_cast<int>(shownLayers >> (layer & 31) & 1);
}

// Gives a pointer, which the kit passes on as it is.
extern "C" BRV_EXPORT void* BX_GetCurrentWindow(BrvVersion) { return &window; }

// Finds a frame of the score.
extern "C" BRV_EXPORT EXTGF2005a* BX_LoadTGF(int, int staff, int measure, int layer, int, BrvVersion) {
  const auto found = Frames().find(static_cast<std::uint64_t>((staff * 200 + measure) * 4 + layer));
  return found == Frames().end() ? nullptr : &found->second;
}
