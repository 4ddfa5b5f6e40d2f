// Document records.
#define BRV_DISTINCT_INTEGER_CLASSES

#include "hostfunction.h"

short16 BX_LoadEData(uint32 tag, EDataKey* key, void* data, std::int32_t* size, BrvVersion version) {
  FORWARD_TO_HOST(BX_LoadEData, 0, tag, key, data, size, version);
}

short16 BX_SaveEData(uint32 tag, EDataKey* key, void* data, uint32 size, BrvVersion version) {
  FORWARD_TO_HOST(BX_SaveEData, 0, tag, key, data, size, version);
}
