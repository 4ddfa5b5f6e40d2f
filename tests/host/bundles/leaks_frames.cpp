#include "extension.h"

int BrevixExtensionInvoke(void*, int index, EREGION* region, EREGION*) {
  if (index != 0 || region == nullptr) return 0;
  BX_LoadTGF(region->regionScope, region->startStaff, region->startMeasure, 0, 1, kBrvVersion);
  return 0;
}
