#include "documentspecs.h"
#include "extension.h"

// Beside the call of the kit that leaves frames loaded, and not exported.
[[gnu::noinline, gnu::visibility("hidden")]] void LoadFirstFrame(const EREGION& region) {
  BX_LoadTGF(region.regionScope, region.startStaff, region.startMeasure, 0, kLoadFlag, kBrvVersion);
  asm volatile("");  // the call is not the last thing that is done
}

int BrevixExtensionInvoke(void*, int index, EREGION* region, EREGION*) {
  if (index != 0 || region == nullptr) return 0;
  BXUtilIsEmptyMeasure(region->regionScope, region->startStaff, region->startMeasure);
  LoadFirstFrame(*region);
  return 0;
}
