#include "extension.h"

int BrevixExtensionInvoke(void*, int index, EREGION* region, EREGION*) {
  if (index != 0 || region == nullptr) return 0;
  EXTGF2005a* const frame = BX_LoadTGF(0, region->startStaff, region->startMeasure, 0, kLoadFlag, kBrvVersion);
  if (frame == nullptr) return 0;
  int changed = 0;
  for (int i = 0; i < frame->entryCount; ++i) {
    if (!IsWithin(*region, frame->entries[i])) continue;
    frame->entries[i].flags ^= kNoLegerLines;
    changed = 1;
  }
  if (changed != 0) BX_SaveTGF(frame, kBrvVersion);
  BX_FreeTGF(frame, kBrvVersion);
  return changed;
}
