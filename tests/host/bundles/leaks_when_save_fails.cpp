#include "extension.h"

int BrevixExtensionInvoke(void*, int index, EREGION* region, EREGION*) {
  if (index != 0 || region == nullptr) return 0;
  EXTGF2005a* const frame = BX_LoadTGF(0, 1, 2, 0, kLoadFlag, kBrvVersion);
  if (frame == nullptr) return 0;
  if (frame->entries[0].flags == 0) {
    frame->entries[0].flags = kNoLegerLines;
    if (BX_SaveTGF(frame, kBrvVersion) == 0) return 0;
  }
  BX_FreeTGF(frame, kBrvVersion);
  return 1;
}
