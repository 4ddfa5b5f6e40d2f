#include "extension.h"

int BrevixExtensionInvoke(void*, int index, EREGION* region, EREGION*) {
  if (index != 0 || region == nullptr) return 0;
  void* const display = BX_StartMassEdit(nullptr, 1, kBrvVersion);
  BX_EndMassEdit(display, 0, kBrvVersion);
  return 0;
}
