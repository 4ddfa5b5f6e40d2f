#include <unistd.h>

#include "extension.h"
#include "keyboard.h"

// Not a fault: an extension that has a lot to do, and shows its progress.
int BrevixExtensionInvoke(void*, int index, EREGION* region, EREGION*) {
  if (index != 0 || region == nullptr) return 0;
  BX_AlertMessage(nullptr, kAlertMessage, 0, "working", kBrvVersion);
  void* const display = BX_StartMassEdit(nullptr, 1000, kBrvVersion);
  while (!EventUtilCancelInQueue()) {
    BX_MassEditProgress(display, 1, 0, 0, -1, kBrvVersion);
    usleep(1000);
  }
  BX_EndMassEdit(display, 1, kBrvVersion);
  return HideFirstFrame(*region);
}
