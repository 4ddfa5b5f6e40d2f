#include <cstdint>

#include "brevixpdk.h"
#include "documentspecs.h"

namespace {

// Bit 30 of the 32-bit word of entryFlags.
constexpr std::uint8_t kContentBit = 0x40;

bool HasContent(const EXTGF2005a& frame) {
  for (int i = 0; i < frame.entryCount; ++i) {
    if ((frame.entries[i].entryFlags[3] & kContentBit) != 0) return true;
  }
  return false;
}

}  // namespace

// No frame is freed: hosts share the frames of a measure between callers, and extensions of old keep on working with
// them.
int BXUtilIsEmptyMeasure(short16 scope, short16 staff, short16 measure) {
  const int layers = BX_GetMaxLayers(kBrvVersion);
  for (int layer = 0; layer < layers; ++layer) {
    const EXTGF2005a* const frame = BX_LoadTGF(scope, staff, measure, layer, 1, kBrvVersion);
    if (frame != nullptr && HasContent(*frame)) return 0;
  }
  return 1;
}
