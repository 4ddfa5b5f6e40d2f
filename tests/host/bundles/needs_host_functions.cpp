#include "extension.h"

int BrevixExtensionInvoke(void*, int index, EREGION* region, EREGION*) {
  if (index != 0 || region == nullptr) return 0;
  const EXTGF2005a* const frame = BX_LoadTGF(0, 1, 1, 0, kLoadFlag, kBrvVersion);
  const int count = frame->entryCount;
  BX_FreeTGF(const_cast<EXTGF2005a*>(frame), kBrvVersion);
  return count < 0;
}
