#include "extension.h"

int BrevixExtensionInvoke(void*, int, EREGION* region, EREGION* fallback) {
  if (region == nullptr && BX_AlertMessage(nullptr, 33, 0, "All of it?", kBrvVersion) != 1) return 0;
  return HideFirstFrame(region != nullptr ? *region : *fallback);
}
