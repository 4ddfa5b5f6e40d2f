#include <cstdint>

#include "extension.h"

// Comes to no end where the last one is the greatest that there is.
int BrevixExtensionInvoke(void*, int index, EREGION* region, EREGION*) {
  if (index != 0 || region == nullptr) return 0;
  volatile std::int16_t staff = region->startStaff;
  while (staff <= region->endStaff) staff = static_cast<std::int16_t>(staff + 1);
  return HideFirstFrame(*region);
}
