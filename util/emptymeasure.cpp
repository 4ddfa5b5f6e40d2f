#include <cstdint>

#include "brevixpdk.h"
#include "documentspecs.h"

namespace {

bool HasContent(const EXTGF2005a& frame) {
  for (int i = 0; i < frame.entryCount; ++i) {
    if ((frame.entries[i].entryFlags[kContentByte] & kContentBit) != 0) return true;
  }
  return false;
}

}  // namespace

// Compatibility: no frame is freed. Hosts share the frames of a measure between callers, and older extensions go on
// working with the frames that this call has loaded.
int BXUtilIsEmptyMeasure(short16 scope, short16 staff, short16 measure) {
  const int layers = BX_GetMaxLayers(kBrvVersion);
  for (int layer = 0; layer < layers; ++layer) {
    const EXTGF2005a* const frame = BX_LoadTGF(scope, staff, measure, layer, 1, kBrvVersion);
    if (frame != nullptr && HasContent(*frame)) return 0;
  }
  return 1;
}
