#include "extension.h"

// Tries twice to have its progress shown, and forgets its edit if that fails.
int BrevixExtensionInvoke(void*, int index, EREGION* region, EREGION*) {
  if (index != 0 || region == nullptr) return 0;
  BX_StartBrevixEdit(nullptr, kBrvVersion);
  void* display = BX_StartMassEdit(nullptr, 1, kBrvVersion);
  if (display == nullptr) display = BX_StartMassEdit(nullptr, 1, kBrvVersion);
  if (display == nullptr) return 0;
  BX_EndMassEdit(display, 0, kBrvVersion);
  BX_EndBrevixEdit(kBrvVersion);
  return 0;
}
