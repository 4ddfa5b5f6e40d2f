// Single UTF-16 units, which go through memcpy because they may be at an odd address.
#pragma once

#include <cstring>

#include "hostrecords.h"

inline UniChar LoadUnit(const UniChar* units) {
  UniChar unit;
  std::memcpy(&unit, units, sizeof(unit));
  return unit;
}

inline void StoreUnit(UniChar* units, UniChar unit) { std::memcpy(units, &unit, sizeof(unit)); }
