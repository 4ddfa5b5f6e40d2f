#include "legerlinescommand.h"

#include <cstdint>

#include "brevixpdk.h"
#include "convention.h"
#include "integerclasses.h"
#include "progress.h"

namespace {

// The positions in a measure that belong to the region, both ends included. They depend on the measure alone: the first
// and last measure have the same ones in every staff and layer.
struct PositionRange {
  std::int32_t low;
  std::int32_t high;
};

PositionRange RangeOfMeasure(const EREGION& region, int measure) {
  return {measure == region.startMeasure ? region.startPosition : 0,
          measure == region.endMeasure ? region.endPosition : INT32_MAX};
}

// Sets or clears the bit. Returns whether that changed it.
bool ChangeEntry(EXENTRY& entry, bool hide) {
  const auto wanted =
      static_cast<std::uint16_t>(hide ? entry.flags | kNoLegerLines : entry.flags & ~std::uint16_t{kNoLegerLines});
  if (entry.flags == wanted) return false;
  entry.flags = wanted;
  return true;
}

// Returns whether any entry changed. Entries are in ascending order of position, so the first one after the range ends
// the scan.
bool ChangeFrame(EXTGF2005a& frame, PositionRange range, bool hide) {
  bool changed = false;
  for (int i = 0; i < frame.entryCount; ++i) {
    EXENTRY& entry = frame.entries[i];
    if (entry.position > range.high) break;
    if (entry.position >= range.low && ChangeEntry(entry, hide)) changed = true;
  }
  return changed;
}

// One run of the command over a region.
class Walk {
 public:
  Walk(EREGION& region, bool hide) : region_(region), hide_(hide) {
    BXUtilPRStart(&report_, BXUtilPRCalcJobSize(&region_, kPRMeasures | kPRStaves | kPRLayers));
  }

  short16 Run() {
    const int layers = BX_GetMaxLayers(kBrvVersion);
    bool done = true;
    for (int staff = region_.startStaff; done && staff <= region_.endStaff; ++staff) done = WalkStaff(staff, layers);
    BXUtilPREnd(&report_, done ? 0 : 1);
    return changed_ ? 1 : 0;
  }

 private:
  // These return whether to go on: false after a cancel.

  bool WalkStaff(int staff, int layers) {
    if (region_.startMeasure > region_.endMeasure) return true;
    for (int layer = 0; layer < layers; ++layer) {
      if (BX_GetShowLayer(layer, kBrvVersion) != 0 && !WalkLayer(staff, layer)) return false;
    }
    return true;
  }

  bool WalkLayer(int staff, int layer) {
    for (int measure = region_.startMeasure; measure <= region_.endMeasure; ++measure) {
      EXTGF2005a* frame = BX_LoadTGF(region_.regionScope, staff, measure, layer, kLoadFlag, kBrvVersion);
      if (frame != nullptr && !VisitFrame(frame, measure)) return false;
    }
    return true;
  }

  bool VisitFrame(EXTGF2005a* frame, int measure) {
    if (ChangeFrame(*frame, RangeOfMeasure(region_, measure), hide_)) {
      BX_SaveTGF(frame, kBrvVersion);
      changed_ = true;
    }
    BX_FreeTGF(frame, kBrvVersion);
    ++loaded_;
    return BXUtilPRUpdate(&report_, loaded_) != 0;
  }

  EREGION& region_;
  const bool hide_;
  tProgressReport report_ = {};
  int loaded_ = 0;  // in the report, only its low 16 bits count
  bool changed_ = false;
};

}  // namespace

short16 DoShowLegerLines(EREGION* region, short16 variant) { return Walk(*region, SignExtend16(variant) == 0).Run(); }
