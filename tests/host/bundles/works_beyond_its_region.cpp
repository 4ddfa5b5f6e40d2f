#include "extension.h"

// Takes no notice of the first position.
int BrevixExtensionInvoke(void*, int index, EREGION* region, EREGION*) {
  if (index != 0 || region == nullptr) return 0;
  region->startPosition = 0;
  return HideFirstFrame(*region);
}
