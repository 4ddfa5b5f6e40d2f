#include "extension.h"

int BrevixExtensionInvoke(void*, int index, EREGION* region, EREGION*) {
  if (index != 0 || region == nullptr) return 0;
  EXTGF2005a* const frame = BX_LoadTGF(0, region->startStaff, region->startMeasure, 0, kLoadFlag, kBrvVersion);
  BX_FreeTGF(frame, kBrvVersion);
  frame->hostData[0] = 1;
  BX_SaveTGF(frame, kBrvVersion);
  return 0;
}
