#include "chords.h"

#include <BrvEDK/brevixpdk.h>
#include <BrvEDK/convention.h>

#include <cstdint>

namespace {

// Only the first and the last measure of a region are cut, at a position in them.
bool IsInside(const EREGION& region, int measure, std::int32_t position) {
  if (measure == region.startMeasure && position < region.startPosition) return false;
  return measure != region.endMeasure || position <= region.endPosition;
}

bool HideInFrame(const EREGION& region, int measure, EXTGF2005a& frame) {
  bool changed = false;
  for (int i = 0; i < frame.entryCount; ++i) {
    EXENTRY& entry = frame.entries[i];
    const bool isHidden = (entry.flags & kNoLegerLines) != 0;
    if (isHidden || entry.noteCount < 2 || !IsInside(region, measure, entry.position)) continue;
    entry.flags |= kNoLegerLines;
    changed = true;
  }
  return changed;
}

// The host owns the frame, and wants it back before it gives out another.
bool HideInMeasure(const EREGION& region, int staff, int layer, int measure) {
  EXTGF2005a* const frame = BX_LoadTGF(region.regionScope, staff, measure, layer, kLoadFlag, kBrvVersion);
  if (frame == nullptr) return false;
  const bool changed = HideInFrame(region, measure, *frame);
  if (changed) BX_SaveTGF(frame, kBrvVersion);
  BX_FreeTGF(frame, kBrvVersion);
  return changed;
}

}  // namespace

bool HideLedgerLinesOfChords(const EREGION& region) {
  bool changed = false;
  const int layers = BX_GetMaxLayers(kBrvVersion);
  for (int staff = region.startStaff; staff <= region.endStaff; ++staff) {
    for (int layer = 0; layer < layers; ++layer) {
      if (BX_GetShowLayer(layer, kBrvVersion) == 0) continue;
      for (int measure = region.startMeasure; measure <= region.endMeasure; ++measure) {
        if (HideInMeasure(region, staff, layer, measure)) changed = true;
      }
    }
  }
  return changed;
}
