// Document records.
#include "hostfunction.h"

short16 BX_LoadEData(uint32 tag, EDataKey* key, void* data, std::int32_t* size, BrvVersion version) {
  static const HostFunction<decltype(BX_LoadEData)> host("BX_LoadEData");
  return host.Call(0, tag, key, data, size, version);
}

short16 BX_SaveEData(uint32 tag, EDataKey* key, void* data, uint32 size, BrvVersion version) {
  static const HostFunction<decltype(BX_SaveEData)> host("BX_SaveEData");
  return host.Call(0, tag, key, data, size, version);
}
