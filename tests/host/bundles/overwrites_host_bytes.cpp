#include "extension.h"

int BrevixExtensionInvoke(void*, int index, EREGION* region, EREGION*) {
  if (index != 0 || region == nullptr) return 0;
  EXTGF2005a* const frame = BX_LoadTGF(0, region->startStaff, region->startMeasure, 0, kLoadFlag, kBrvVersion);
  if (frame == nullptr) return 0;
  frame->entries[0].hostTail[5] ^= 1;
  BX_FreeTGF(frame, kBrvVersion);
  return 0;
}
