#include "extension.h"

int BrevixExtensionInvoke(void*, int index, EREGION* region, EREGION*) {
  if (index != 0 || region == nullptr) return 0;
  BX_StartBrevixEdit_UTF16(nullptr, kBrvVersion);
  EXTGF2005a* const frame = BX_LoadTGF(0, region->startStaff, region->startMeasure, 0, kLoadFlag, kBrvVersion);
  frame->entries[0].position += 1;
  BX_SaveTGF(frame, kBrvVersion);
  BX_FreeTGF(frame, kBrvVersion);
  BX_CancelBrevixEdit(kBrvVersion);
  return HideFirstFrame(*region);
}
