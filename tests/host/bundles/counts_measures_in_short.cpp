#include <cstdint>

#include "extension.h"

// Comes to no end where the last one is the greatest that there is.
int BrevixExtensionInvoke(void*, int index, EREGION* region, EREGION*) {
  if (index != 0 || region == nullptr) return 0;
  volatile std::int16_t measure = region->startMeasure;
  while (measure <= region->endMeasure) measure = static_cast<std::int16_t>(measure + 1);
  return HideFirstFrame(*region);
}
