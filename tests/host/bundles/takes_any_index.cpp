#include "extension.h"

int BrevixExtensionInvoke(void*, int, EREGION* region, EREGION* fallback) {
  if (region == nullptr && BX_AlertMessage(nullptr, kAlertQuestion, 0, "All of it?", kBrvVersion) != kAlertYes)
    return 0;
  return HideFirstFrame(region != nullptr ? *region : *fallback);
}
