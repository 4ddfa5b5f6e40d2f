#include "extension.h"

int BrevixExtensionInvoke(void*, int index, EREGION* region, EREGION* fallback) {
  if (index != 0) return 0;
  if (region == nullptr) BX_AlertMessage(nullptr, kAlertQuestion, 0, "All of it?", kBrvVersion);
  return HideFirstFrame(region != nullptr ? *region : *fallback);
}
