#include "documentrecords.h"
#include "extension.h"

int BrevixExtensionInvoke(void*, int index, EREGION* region, EREGION*) {
  if (index != 0 || region == nullptr) return 0;
  EDataKey key = {1, 0};
  EDTMeasureSpec2014 record;
  std::int32_t size = sizeof(record);
  if (BX_LoadEData(kMeasureSpecTag, &key, &record, &size, kBrvVersion) == 0) return 0;
  record.beats += 1;
  BX_SaveEData(kMeasureSpecTag, &key, &record, sizeof(record), kBrvVersion);
  return HideFirstFrame(*region);
}
