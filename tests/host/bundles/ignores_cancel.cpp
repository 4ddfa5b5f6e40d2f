#include <unistd.h>

#include "extension.h"

int BrevixExtensionInvoke(void*, int index, EREGION* region, EREGION*) {
  if (index != 0 || region == nullptr) return 0;
  BX_AlertMessage(nullptr, kAlertMessage, 0, "working", kBrvVersion);
  for (;;) pause();
}
