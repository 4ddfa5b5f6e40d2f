#include <unistd.h>

#include <cstdlib>

#include "extension.h"

// Not a fault: an extension that works until the file is there that TOLD_BY_FILE names.
int BrevixExtensionInvoke(void*, int index, EREGION* region, EREGION*) {
  if (index != 0 || region == nullptr) return 0;
  BX_AlertMessage(nullptr, kAlertMessage, 0, "working", kBrvVersion);
  while (access(std::getenv("TOLD_BY_FILE"), F_OK) != 0) usleep(1000);
  return HideFirstFrame(*region);
}
