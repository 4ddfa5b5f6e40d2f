#include "documentspecs.h"
#include "extension.h"

int BrevixExtensionInvoke(void*, int index, EREGION* region, EREGION*) {
  if (index != 0 || region == nullptr) return 0;
  BXUtilIsEmptyMeasure(region->regionScope, region->startStaff, region->startMeasure);
  return 0;
}
