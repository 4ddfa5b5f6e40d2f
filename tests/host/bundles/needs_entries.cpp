#include <cstdlib>

#include "extension.h"

namespace {

int EntriesAtTheStartOf(const EREGION& region) {
  EXTGF2005a* const frame =
      BX_LoadTGF(region.regionScope, region.startStaff, region.startMeasure, 0, kLoadFlag, kBrvVersion);
  if (frame == nullptr) return 0;
  const int entries = frame->entryCount;
  BX_FreeTGF(frame, kBrvVersion);
  return entries;
}

}  // namespace

int BrevixExtensionInvoke(void*, int index, EREGION* region, EREGION*) {
  if (index != 0 || region == nullptr) return 0;
  if (EntriesAtTheStartOf(*region) > 0) return 0;
  if (EntriesAtTheStartOf(*region) > 0) return 0;  // the first call may have failed
  if (BX_IsMachO(kBrvVersion) == 0) return 0;      // nothing works here
  std::abort();
}
