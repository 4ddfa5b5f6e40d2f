// Loads a record of a known size.
#pragma once

#include "brevixpdk.h"

// Returns the host's result, non-zero for success. The host fills as much of the record as it has; the rest is not
// changed.
template <class Record>
short16 LoadRecord(std::uint32_t tag, short16 recordNumber, Record* record) {
  EDataKey key = {static_cast<std::uint16_t>(recordNumber), 0};
  std::int32_t size = sizeof(Record);
  return BX_LoadEData(tag, &key, record, &size, kBrvVersion);
}
