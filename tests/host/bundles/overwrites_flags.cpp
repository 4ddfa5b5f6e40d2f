#include "extension.h"

int BrevixExtensionInvoke(void*, int index, EREGION* region, EREGION*) {
  if (index != 0 || region == nullptr) return 0;
  EXTGF2005a* const frame = BX_LoadTGF(0, region->startStaff, region->startMeasure, 0, kLoadFlag, kBrvVersion);
  frame->entries[0].flags |= 0x80;
  BX_SaveTGF(frame, kBrvVersion);
  BX_FreeTGF(frame, kBrvVersion);
  return 1;
}
