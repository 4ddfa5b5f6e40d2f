#include "extension.h"

int BrevixExtensionInvoke(void*, int index, EREGION* region, EREGION*) {
  if (index != 0 || region == nullptr) return 0;
  BX_LoadTGF(region->regionScope, region->startStaff, region->startMeasure, 0, kLoadFlag, kBrvVersion);
  return 0;
}
