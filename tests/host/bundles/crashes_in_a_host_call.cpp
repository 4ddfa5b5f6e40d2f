#include "extension.h"

int BrevixExtensionInvoke(void*, int index, EREGION* region, EREGION*) {
  if (index != 0 || region == nullptr) return 0;
  return BX_AlertMessage(nullptr, kAlertMessage, 0, reinterpret_cast<const char*>(8), kBrvVersion);
}
